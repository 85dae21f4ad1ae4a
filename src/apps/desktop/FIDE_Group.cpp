// Opening a group, saving it, leaving it.
#include <algorithm>

#include "BoxText.h"
#include "CXChooseFile.h"
#include "FIDE.h"
#include "FSave.h"
#include "Failure.h"
#include "MXForm.h"
#include "MXRegistry.h"
#include "PathText.h"
#include "RememberedRoots.h"

namespace {

constexpr std::int32_t lRecentCount = 9;
/// As many as fit a message box.
constexpr std::size_t FoldersAtATime = 12;

/// The path as a menu shows it, behind its number.
Text RecentCaption(std::int32_t lIndex, TextView sPath) {
  Text sCaption = u"&" + ToText(lIndex) + u" ";
  for (const char16_t c : sPath) sCaption += c == u'&' ? Text(u"&&") : Text(1, c);
  return sCaption;
}

Text NoteLine(const DiskIDE::Note& oNote) {
  Text sLine = oNote.sFile;
  if (oNote.lLine > 0) sLine += u", line " + ToText(static_cast<long long>(oNote.lLine));
  return sLine + u":\r\n" + oNote.sMessage;
}

/// The notes as paragraphs.
Text NoteText(TextView sHead, const std::vector<DiskIDE::Note>& oNotes) {
  std::vector<Text> asNote;
  for (const DiskIDE::Note& oNote : oNotes) asNote.push_back(NoteLine(oNote));
  return Text(sHead) + BoxList(asNote, u"\r\n\r\n");
}

}  // namespace

void FIDE::Start(const Setup& oSetup) {
  moSetup = oSetup;
  Show();
  tmrStart.SetEnabled(true);
}

void FIDE::tmrStart_Tick() {
  tmrStart.SetEnabled(false);
  const Text sGroup = moSetup.sGroup.empty() ? moRecent.Item(1) : moSetup.sGroup;
  sGroup.empty() ? mnuFileOpen_Click() : static_cast<void>(OpenGroup(sGroup));
  ConnectAddIn(moSetup.nConnectMode);
}

void FIDE::mnuFileOpen_Click() {
  CXChooseFile oChoose(App());
  oChoose.Dialog = this;
  oChoose.Title = u"Open Group";
  oChoose.OFilters = {u"Project Groups and Projects (*.vbg, *.vbp) | *.vbg;*.vbp;*.VBG;*.VBP",
                      u"All Files (*) | *"};
  if (!msGroup.empty()) oChoose.Directory = msGroup.substr(0, msGroup.find_last_of(u"/\\") + 1);
  if (oChoose.Show(false)) OpenGroup(oChoose.FileName);
}

void FIDE::ShowRecent() {
  auto& items = oMenu.Array(u"mnuFileRecent");
  for (std::int32_t i = 1; i <= lRecentCount; ++i) {
    const bool bThere = i <= moRecent.Count();
    if (bThere) items(i).SetCaption(RecentCaption(i, moRecent.Item(i)));
    items(i).SetVisible(bThere);
  }
  items(lRecentCount + 1).SetVisible(moRecent.Count() > 0);
}

bool FIDE::OpenGroup(TextView sPath) {
  const Text sGroup(sPath);  // a copy: sPath may point into the list that is changed here
  if (sGroup.empty() || !MayLeaveGroup()) return false;
  OfferToMend(PathOfText(sGroup));
  std::unique_ptr<DiskIDE> pNew;
  try {
    pNew = ReadGroup(PathOfText(sGroup));
    if (pNew->Root().VBProjects().Count() == 0)
      throw Failure(321, u"It holds no project that can be read: " + sGroup);
  } catch (const Failure& oFailure) {
    Tell(u"The group can't be opened.\r\n\r\n" + oFailure.Description() +
         u"\r\n\r\nChoose File, Open Group to open another one.");
    return false;
  }
  TakeGroup(std::move(pNew), sGroup);
  TellNotes();
  return true;
}

std::unique_ptr<DiskIDE> FIDE::ReadGroup(const std::string& path) {
  RememberedRoots answers(path);
  for (;;) {
    DiskIDE::Options options;
    options.roots = answers.Allowed();
    options.roots.insert(options.roots.end(), moSetup.roots.begin(), moSetup.roots.end());
    auto group = DiskIDE::Open(path, options);
    std::vector<std::string> unknown = group->FoldersOutside();
    std::erase_if(unknown, [&](const std::string& folder) { return answers.Knows(folder); });
    if (unknown.empty()) return group;
    // Each one is named: none may hide behind an "and so on".
    unknown.resize(std::min(unknown.size(), FoldersAtATime));
    answers.Add(unknown, MayWriteIn(unknown));
  }
}

bool FIDE::MayWriteIn(const std::vector<std::string>& folders) {
  Text question =
      u"Modules of this group lie in folders outside of its own. They can be read, and are "
      u"written only if you allow it:\r\n";
  for (const std::string& folder : folders) question += u"\r\n" + TextOfPath(folder);
  question += u"\r\n\r\nMay modules in these folders be written?";
  return IsYes(question);
}

void FIDE::TakeGroup(std::unique_ptr<DiskIDE> pNew, TextView sPath) {
  const bool bConnected = mpAddIn != nullptr;
  DisconnectAddIn();
  std::swap(mpIDE, pNew);
  msGroup = sPath;
  masConflict.clear();
  ShowGroup();
  ShowBars();
  pNew.reset();  // the old group; not earlier, since tree and bars showed its objects
  moRecent.Add(msGroup);
  ShowRecent();
  if (bConnected) ConnectAddIn(ConnectMode::AfterStartup);
}

void FIDE::TellNotes() {
  if (mpIDE->Notes().empty()) return;
  Tell(NoteText(u"The group is open, but not all of it could be read:", mpIDE->Notes()));
}

bool FIDE::SaveAll() {
  if (mpIDE->ChangedPaths().empty()) return true;
  DiskIDE::SaveResult oResult;
  try {
    oResult = SaveAsRun();
  } catch (const Failure& oFailure) {
    Tell(u"Nothing was saved, and the changes stay in this window.\r\n\r\n" +
         oFailure.Description());
    return false;
  }
  for (const std::string& sPath : oResult.asSaved) masConflict.erase(sPath);
  ShowGroupState();
  if (oResult.oFailed.empty()) return true;
  Tell(
      NoteText(u"These files could not be saved, and their changes stay in this window. Where the "
               u"cause can be removed, remove it and choose File, Save All again. A file that "
               u"another program has changed isn't overwritten: to go on with what is on disk, "
               u"choose File, Reload Group; its changes here are lost then:",
               oResult.oFailed));
  return false;
}

bool FIDE::MayLeaveGroup() {
  const std::vector<std::string> asPath = mpIDE->ChangedPaths();
  if (asPath.empty()) return true;
  const SaveAnswer eAnswer = FSave(App()).Display(asPath);
  if (eAnswer == SaveAnswer::Save) return SaveAll();
  return eAnswer == SaveAnswer::Discard;
}

void FIDE::Form_QueryUnload(bool& bCancel) {
  bCancel = true;  // stays so if something below fails, so that nothing is lost
  bCancel = mbInAddIn || !MayLeaveGroup();
}

void FIDE::Form_Unload() {
  DisconnectAddIn();
  mpIDE = DiskIDE::Open(std::vector<std::string>(), {});
  msGroup.clear();
  MXForm::SavePosition(*this, mhReg, true);
  MXForm::SavePosition(picSplit, mhRegSplit, false);
  for (std::int32_t* phKey : {&mhReg, &mhRegSplit, &mhRegRecent}) {
    MXRegistry::CloseRegKey(*phKey);
    *phKey = 0;
  }
}
