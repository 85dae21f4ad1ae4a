// The help: a book that opens in a window of its own and stays usable beside modal forms.
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpfrm.h>
#include <wx/html/helpwnd.h>
#include <wx/notebook.h>
#include <wx/splitter.h>

#include "HostWindow.h"
#include "NativeDetails.h"
#include "NativeText.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// Pixels at 96 dpi, choices: a line of text as long as one reads with ease, beside the contents.
constexpr int HelpWidth = 960, HelpHeight = 680;

/// The book for a help file: the file itself, or the one of the same name with the extension that
/// this window reads. Empty when neither exists.
wxString BookOf(const wxString& sFile) {
  wxFileName oName(sFile);
  if (oName.GetExt().IsSameAs("chm", false)) oName.SetExt("htb");
  return wxFileExists(oName.GetFullPath()) ? oName.GetFullPath() : wxString();
}

/// Only a derived class has access to the window's parts.
class HelpParts : public wxHtmlHelpWindow {
 public:
  /// Gives the side with contents, index and search the width that shows the tabs of all three.
  static void Widen(wxHtmlHelpWindow& o, int nWidth) {
    (o.*&HelpParts::m_Splitter)->SetSashPosition(nWidth);
  }
  /// Shows the search page, which the library does only with the results of a search.
  static void ShowSearch(wxHtmlHelpWindow& o) {
    (o.*&HelpParts::m_NavigNotebook)
        ->SetSelection(static_cast<std::size_t>(o.*&HelpParts::m_SearchPage));
    (o.*&HelpParts::m_SearchText)->SetFocus();
  }
};

}  // namespace

bool WxRenderer::ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext, Form*) {
  const wxString sBook = BookOf(ToWx(sFile));
  if (sBook.empty()) return false;
  const HostWindow::Look oLook;
  const bool bNew = !mpHelp || sBook != ToWx(msHelpBook);
  if (bNew) {
    if (!wxFileSystem::HasHandlerForPath("a.zip#zip:b")) {
      wxFileSystem::AddHandler(new wxZipFSHandler);
    }
    auto pHelp = std::make_unique<wxHtmlHelpController>(wxHF_DEFAULT_STYLE & ~wxHF_PRINT);
    if (!pHelp->AddBook(wxFileName(sBook))) return false;
    mpHelp = std::move(pHelp);
    msHelpBook = FromWx(sBook);
  }
  bool bShown = false;
  if (eCommand == HelpCommand::Index) {
    bShown = mpHelp->DisplayIndex();
  } else if (eCommand == HelpCommand::Contents && lContext > 0) {
    bShown = mpHelp->DisplaySection(lContext);
  } else {
    bShown = mpHelp->DisplayContents();
  }
  if (wxHtmlHelpFrame* const poFrame = mpHelp->GetFrame()) {
    NativeDetails::FreeFromModal(*poFrame);
    if (bNew) {
      poFrame->SetSize(moUnits.Scaled(HelpWidth), moUnits.Scaled(HelpHeight));
      poFrame->CentreOnScreen();
      HelpParts::Widen(*mpHelp->GetHelpWindow(), moUnits.Scaled(HelpWidth) / 3);
    }
    poFrame->Raise();
    if (bShown && eCommand == HelpCommand::Search) HelpParts::ShowSearch(*mpHelp->GetHelpWindow());
  }
  return bShown;
}

}  // namespace Forms
