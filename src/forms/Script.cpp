#include "Script.h"

#include "Form.h"

namespace Forms {

void Script::MsgBox(MsgBoxResult eResult) {
  MsgBox([eResult](const MsgBoxRequest&) { return eResult; });
}
void Script::MsgBox(std::function<MsgBoxResult(const MsgBoxRequest&)> oAnswer) {
  moMsgBox.push_back(std::move(oAnswer));
}
void Script::ChooseFile(std::function<DialogAnswer(FileDialog&)> oAnswer) {
  moChooseFile.push_back(std::move(oAnswer));
}
void Script::ChooseFont(std::function<DialogAnswer(FontDialog&)> oAnswer) {
  moChooseFont.push_back(std::move(oAnswer));
}
void Script::ChoosePage(std::function<DialogAnswer(PageDialog&)> oAnswer) {
  moChoosePage.push_back(std::move(oAnswer));
}
void Script::DoEvents(std::function<void()> oAct) {
  moDoEvents.push_back(std::move(oAct));
}

std::size_t Script::Unused() const {
  return moModal.size() + moMsgBox.size() + moChooseFile.size() + moChooseFont.size() +
         moChoosePage.size() + moDoEvents.size();
}

void Script::Fault(const std::string& sWhat) {
  moFaults.push_back(sWhat);
  throw ScriptFault(sWhat);
}

template <class Queue>
auto Script::Next(Queue& oQueue, const std::string& sWhat) {
  if (oQueue.empty()) Fault(sWhat + " is shown, and the script has no answer");
  auto oNext = std::move(oQueue.front());
  oQueue.pop_front();
  return oNext;
}

void Script::RunModal(Form& oForm) {
  const std::string sName = ToUtf8(oForm.Name());
  Next(moModal, sName)(oForm);
  if (oForm.Visible()) Fault(sName + " is still open when the script's answer to it ends");
}

MsgBoxResult Script::RunMsgBox(const MsgBoxRequest& oRequest) {
  moBoxes.push_back(oRequest);
  const std::string sWhat = "the box \"" + ToUtf8(oRequest.sPrompt) + "\"";
  const MsgBoxResult eResult = Next(moMsgBox, sWhat)(oRequest);
  if (!HasAnswer(oRequest.eButtons, eResult)) Fault(sWhat + " has no such button");
  return eResult;
}

DialogAnswer Script::RunChooseFile(FileDialog& oDialog) {
  return Answer(oDialog, Next(moChooseFile, "a file dialog"));
}
DialogAnswer Script::RunChooseFont(FontDialog& oDialog) {
  return Answer(oDialog, Next(moChooseFont, "a font dialog"));
}
DialogAnswer Script::RunChoosePage(PageDialog& oDialog) {
  return Answer(oDialog, Next(moChoosePage, "a page dialog"));
}

void Script::RunDoEvents() {
  if (!moDoEvents.empty()) Next(moDoEvents, "")();
}

}  // namespace Forms
