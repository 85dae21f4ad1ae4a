// Message box and the three common dialogs.
#include <wx/filedlg.h>
#include <wx/fontdlg.h>
#include <wx/msgdlg.h>

#include "FormPeer.h"
#include "HostWindow.h"
#include "NativeText.h"
#include "PageSetupDialog.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

struct BoxButtons {
  long nStyle;
  const char *psYes, *psNo, *psCancel;  ///< labels that differ from the system's; null for none
  MsgBoxResult eYes, eNo, eCancel, eOk;
};

/// By MsgBoxButtons. Where there is no Cancel button, closing the box gives the answer that changes
/// least.
const BoxButtons BoxRows[] = {
    {wxOK, nullptr, nullptr, nullptr, MsgBoxResult::Ok, MsgBoxResult::Ok, MsgBoxResult::Ok,
     MsgBoxResult::Ok},
    {wxOK | wxCANCEL, nullptr, nullptr, nullptr, MsgBoxResult::Ok, MsgBoxResult::Cancel,
     MsgBoxResult::Cancel, MsgBoxResult::Ok},
    {wxYES_NO | wxCANCEL, "&Retry", "&Ignore", "&Abort", MsgBoxResult::Retry, MsgBoxResult::Ignore,
     MsgBoxResult::Abort, MsgBoxResult::Retry},
    {wxYES_NO | wxCANCEL, nullptr, nullptr, nullptr, MsgBoxResult::Yes, MsgBoxResult::No,
     MsgBoxResult::Cancel, MsgBoxResult::Yes},
    {wxYES_NO, nullptr, nullptr, nullptr, MsgBoxResult::Yes, MsgBoxResult::No, MsgBoxResult::No,
     MsgBoxResult::Yes},
    {wxOK | wxCANCEL, "&Retry", nullptr, "&Cancel", MsgBoxResult::Retry, MsgBoxResult::Cancel,
     MsgBoxResult::Cancel, MsgBoxResult::Retry},
};

long IconOf(MsgBoxIcon e) {
  switch (e) {
    case MsgBoxIcon::Critical:
      return wxICON_ERROR;
    case MsgBoxIcon::Question:
      return wxICON_QUESTION;
    case MsgBoxIcon::Exclamation:
      return wxICON_WARNING;
    case MsgBoxIcon::Information:
      return wxICON_INFORMATION;
    default:
      return wxICON_NONE;
  }
}

/// The style bit of the button that Return presses: the request names it by its place from the
/// left, the window system by its role.
long DefaultOf(const MsgBoxRequest& o, const BoxButtons& oButtons) {
  using enum MsgBoxResult;
  static const std::vector<MsgBoxResult> aeOrder[] = {
      {Ok}, {Ok, Cancel}, {Abort, Retry, Ignore}, {Yes, No, Cancel}, {Yes, No}, {Retry, Cancel}};
  const auto& ae = aeOrder[static_cast<std::size_t>(o.eButtons)];
  const auto lAt = static_cast<std::size_t>(o.lDefaultButton - 1);
  if (lAt >= ae.size()) return 0;
  if ((oButtons.nStyle & wxCANCEL) != 0 && ae[lAt] == oButtons.eCancel) return wxCANCEL_DEFAULT;
  return (oButtons.nStyle & wxYES_NO) != 0 && ae[lAt] == oButtons.eNo ? wxNO_DEFAULT : 0;
}

wxString FilterText(const FileDialog& o) {
  wxString sFilter;
  for (const FileFilter& oFilter : o.aoFilter) {
    if (!sFilter.empty()) sFilter += "|";
    sFilter += ToWx(oFilter.sDescription) + "|" + ToWx(Trim(oFilter.sPattern));
  }
  return sFilter.empty() ? wxString(wxFileSelectorDefaultWildcardStr) : sFilter;
}

long FileStyle(const FileDialog& o) {
  if (o.bSave) return wxFD_SAVE | (o.bOverwritePrompt ? wxFD_OVERWRITE_PROMPT : 0);
  return wxFD_OPEN | (o.bMultiSelect ? wxFD_MULTIPLE : 0) |
         (o.bFileMustExist ? wxFD_FILE_MUST_EXIST : 0);
}

}  // namespace

MsgBoxResult WxRenderer::MsgBox(const MsgBoxRequest& oRequest) {
  CatchUp();
  const HostWindow::Look oLook;
  wxWindow* const poWindow = WindowOf(oRequest.poOwner);
  const auto pHost = poWindow ? nullptr : HostWindow::AsOwner();
  const BoxButtons& oButtons = BoxRows[static_cast<std::size_t>(oRequest.eButtons)];
  wxMessageDialog oBox(
      poWindow ? poWindow : pHost.get(), ToField(oRequest.sPrompt), ToWx(oRequest.sTitle),
      oButtons.nStyle | IconOf(oRequest.eIcon) | DefaultOf(oRequest, oButtons) | wxCENTRE);
  if (oButtons.psYes && oButtons.psNo) {
    oBox.SetYesNoCancelLabels(wxString(oButtons.psYes), wxString(oButtons.psNo),
                              wxString(oButtons.psCancel));
  } else if (oButtons.psYes) {
    oBox.SetOKCancelLabels(wxString(oButtons.psYes), wxString(oButtons.psCancel));
  }
  switch (oBox.ShowModal()) {
    case wxID_YES:
      return oButtons.eYes;
    case wxID_NO:
      return oButtons.eNo;
    case wxID_OK:
      return oButtons.eOk;
    default:
      return oButtons.eCancel;
  }
}

DialogAnswer WxRenderer::ChooseFile(FileDialog& o) {
  CatchUp();
  const HostWindow::Look oLook;
  wxFileDialog oNative(WindowOf(o.poOwner), ToWx(o.sTitle), ToWx(o.sDirectory), ToWx(o.sFileName),
                       FilterText(o), FileStyle(o));
  oNative.SetFilterIndex(o.lFilterIndex - 1);
  if (oNative.ShowModal() != wxID_OK) return {};
  wxArrayString asPath;
  if (o.bMultiSelect && !o.bSave) {
    oNative.GetPaths(asPath);
  } else {
    asPath.Add(oNative.GetPath());
  }
  o.asPath.clear();
  for (const wxString& s : asPath) o.asPath.push_back(FromWx(s));
  o.lFilterIndex = oNative.GetFilterIndex() + 1;
  o.bReadOnly = false;
  return {true, 0};
}

DialogAnswer WxRenderer::ChooseFont(FontDialog& o) {
  CatchUp();
  const HostWindow::Look oLook;
  wxFontData oData;
  oData.SetInitialFont(NativeFont(o.oFont));
  oData.SetColour(NativeColor(o.lColor));
  oData.EnableEffects(o.bEffects);
  if (o.lMinSize > 0 || o.lMaxSize > 0) {
    oData.SetRange(o.lMinSize, o.lMaxSize > 0 ? o.lMaxSize : 1638);
  }
  wxFontDialog oNative(WindowOf(o.poOwner), oData);
  if (oNative.ShowModal() != wxID_OK) return {};
  const wxFont oChosen = oNative.GetFontData().GetChosenFont();
  if (!oChosen.IsOk()) return {};
  o.oFont = FontSpecOf(oChosen);
  if (o.bEffects) o.lColor = ColorOf(oNative.GetFontData().GetColour());
  return {true, 0};
}

DialogAnswer WxRenderer::ChoosePage(PageDialog& o) {
  CatchUp();
  const HostWindow::Look oLook;
  PageSetupDialog oNative(WindowOf(o.poOwner), o);
  if (oNative.ShowModal() != wxID_OK) return {};
  oNative.Take(o);
  return {true, 0};
}

}  // namespace Forms
