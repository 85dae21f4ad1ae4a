// The help: a book that opens in a window of its own and stays usable beside modal forms.
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpfrm.h>
#include <wx/html/helpwnd.h>
#include <wx/notebook.h>

#include "NativeDetails.h"
#include "NativeText.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// The book for a help file: the file itself, or the one of the same name with the extension that
/// this window reads. Empty when neither exists.
wxString BookOf(const wxString& sFile) {
  wxFileName oName(sFile);
  if (oName.GetExt().IsSameAs("chm", false)) oName.SetExt("htb");
  return wxFileExists(oName.GetFullPath()) ? oName.GetFullPath() : wxString();
}

/// Shows the search page. The library shows it only with the results of a search, and only a
/// derived class has access to the page's number.
class SearchPage : public wxHtmlHelpWindow {
 public:
  static void Show(wxHtmlHelpWindow& o) {
    (o.*&SearchPage::m_NavigNotebook)
        ->SetSelection(static_cast<std::size_t>(o.*&SearchPage::m_SearchPage));
    (o.*&SearchPage::m_SearchText)->SetFocus();
  }
};

}  // namespace

bool WxRenderer::ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext, Form*) {
  const wxString sBook = BookOf(ToWx(sFile));
  if (sBook.empty()) return false;
  if (!mpHelp || sBook != ToWx(msHelpBook)) {
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
    poFrame->Raise();
    if (bShown && eCommand == HelpCommand::Search) SearchPage::Show(*mpHelp->GetHelpWindow());
  }
  return bShown;
}

}  // namespace Forms
