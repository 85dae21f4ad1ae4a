// The tree of the group, the code of a component, and how it differs from its file.
#include "BoxText.h"
#include "ChangeRows.h"
#include "CodeModule.h"
#include "FIDE.h"
#include "Failure.h"
#include "PathText.h"
#include "Toolkit.h"
#include "VisibleText.h"

namespace {

Text ChangedText(std::size_t lCount) {
  if (lCount == 0) return {};
  return ToText(static_cast<long long>(lCount)) +
         (lCount == 1 ? u" file is not saved" : u" files are not saved");
}

Text NameOf(TextView sPath) {
  return Text(sPath.substr(sPath.find_last_of(u"/\\") + 1));
}

Text PathList(const std::vector<std::string>& asPath) {
  std::vector<Text> asText;
  for (const std::string& sPath : asPath) asText.push_back(TextOfPath(sPath));
  return BoxList(asText, u"\r\n");
}

}  // namespace

void FIDE::Tell(TextView sText) {
  App().MsgBox(FromUtf8(VisibleLines(ToUtf8(sText))), Forms::MsgBoxButtons::OkOnly,
               Forms::MsgBoxIcon::Exclamation);
}

bool FIDE::IsYes(TextView question) {
  return App().MsgBox(FromUtf8(VisibleLines(ToUtf8(question))), Forms::MsgBoxButtons::YesNo,
                      Forms::MsgBoxIcon::Question) == Forms::MsgBoxResult::Yes;
}

void FIDE::ShowGroup() {
  moTree.Fill(mpIDE->Root().VBProjects());
  if (tvwGroup.Nodes().Count() > 0) tvwGroup.Nodes().Roots().front()->SetSelected(true);
  SetCaption(msGroup.empty() ? Text(u"Tarvane Quillon") : NameOf(msGroup) + u" - Tarvane Quillon");
  ShowCode();
  ShowGroupState();
}

void FIDE::tvwGroup_NodeClick() {
  ShowCode();
  ShowChanges();
}

void FIDE::ShowView(TextView sKey) {
  if (tabView.SelectedItem()->Key() != sKey) {
    tabView.Tabs().Item(sKey).SetSelected(true);  // its Click comes back here
    return;
  }
  paneChanges.SetVisible(sKey == u"Changes");
  paneCode.SetVisible(sKey == u"Code");
}

void FIDE::ShowCode() {
  const Forms::Node* poNode = tvwGroup.SelectedItem();
  VBComponent* poComponent = poNode ? moTree.ComponentOf(*poNode) : nullptr;
  mpIDE->ShowCode(nullptr);
  staBar.Panels(1).SetText(poComponent ? poComponent->FileNames(1) : msGroup);
  if (poComponent) return ShowComponentCode(*poComponent);
  paneCode.SetLineNumbers(false);
  paneCode.SetText(poNode ? Text() : Text(u"No group is open. Choose File, Open Group."));
}

void FIDE::ShowComponentCode(VBComponent& oComponent) {
  Text sText;
  bool bCode = false;
  try {
    mpIDE->ShowCode(&oComponent);
    const CodeModule* poModule = oComponent.CodeModule();
    bCode = poModule != nullptr;
    sText = bCode ? poModule->Lines(1, poModule->CountOfLines()) : Text(u"It holds no code.");
  } catch (const Failure& oFailure) {
    sText = u"The code can't be read: " + oFailure.Description();
  }
  // Setting the same text again would scroll the pane to its start.
  paneCode.SetLineNumbers(bCode);
  if (paneCode.Text() != sText) paneCode.SetText(sText);
}

void FIDE::ShowChanges() {
  const Forms::Node* poNode = tvwGroup.SelectedItem();
  const std::string sPath = poNode ? moTree.PathAmong(mpIDE->ChangedPaths(), *poNode) : "";
  std::vector<Forms::CodeLine> aoRow;
  if (!sPath.empty()) {
    const DiskIDE::Change oChange = mpIDE->ChangeOf(sPath);
    aoRow = ChangeRows(oChange.sOldBytes, oChange.sNewBytes);
  }
  if (aoRow.empty()) aoRow.push_back({Forms::LineMark::None, {}, u"No changes."});
  paneChanges.SetLines(aoRow);
}

void FIDE::ShowGroupState() {
  const std::vector<std::string> asChanged = mpIDE->ChangedPaths();
  moTree.Mark(asChanged);
  oMenu[u"mnuFileSave"].SetEnabled(!asChanged.empty());
  oMenu.WorkOut(u"mnuFile");
  staBar.Panels(2).SetText(ChangedText(asChanged.size()));
  ShowChanges();
}

void FIDE::Refresh() {
  // Not while the add-in works: its model holds line numbers and member objects, which reading
  // files again would invalidate.
  if (mbInAddIn || !Loaded()) return;
  const DiskIDE::Refreshed oRefreshed = mpIDE->Refresh();
  ShowCode();
  ShowGroupState();
  TellConflicts(oRefreshed.asConflict);
  TellProjects(oRefreshed.asProject);
}

void FIDE::TellProjects(const std::vector<std::string>& asProject) {
  if (asProject.empty()) return;
  Tell(u"Another program has changed or removed these project files:\r\n" + PathList(asProject) +
       u"\r\n\r\nThe window still shows the projects as they were. To work with them as they are "
       u"now, save your changes and choose File, Reload Group.");
}

void FIDE::TellConflicts(const std::vector<std::string>& asConflict) {
  std::vector<std::string> asNew;
  for (const std::string& sPath : asConflict)
    if (masConflict.insert(sPath).second) asNew.push_back(sPath);
  std::erase_if(masConflict, [&](const std::string& sPath) {
    return std::find(asConflict.begin(), asConflict.end(), sPath) == asConflict.end();
  });
  if (asNew.empty()) return;
  Tell(
      u"Another program has changed or removed these files, which have changes here that aren't "
      u"saved:\r\n" +
      PathList(asNew) +
      u"\r\n\r\nThey won't be overwritten. To go on with what is on disk, choose File, Reload "
      u"Group; the changes here are lost then.");
}
