// The user of a program without a display: a queue of answers for each kind of question.
//
//   oScript.Modal<FRules>([](FRules& o) { o.cmdOK.UserClick(); });
//   oScript.MsgBox(MsgBoxResult::Cancel);
//
// Each modal form, box or dialog takes the next answer of its kind. A question without an answer,
// an answer that doesn't fit, or a modal form that is still open behind its answer is a fault: it
// is noted and thrown as ScriptFault. Error handling on the way may catch the exception, so a test
// looks at Faults in the end, and at Unused for answers that nobody asked for.
#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "CommonDialogs.h"
#include "MessageBox.h"

namespace Forms {

class ScriptFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

class Script {
 public:
  template <class F, class Act>
  void Modal(Act oAct) {
    moModal.push_back([oAct = std::move(oAct), this](Form& oForm) {
      auto* poForm = dynamic_cast<F*>(&oForm);
      if (!poForm) Fault("another form is shown than the script expects");
      oAct(*poForm);
    });
  }
  void MsgBox(MsgBoxResult eResult);
  void MsgBox(std::function<MsgBoxResult(const MsgBoxRequest&)> oAnswer);
  void ChooseFile(std::function<DialogAnswer(FileDialog&)> oAnswer);
  void ChooseFont(std::function<DialogAnswer(FontDialog&)> oAnswer);
  void ChoosePage(std::function<DialogAnswer(PageDialog&)> oAnswer);
  /// What the user does during the next DoEvents; without one, DoEvents does nothing.
  void DoEvents(std::function<void()> oAct);

  /// All boxes that were shown.
  const std::vector<MsgBoxRequest>& Boxes() const { return moBoxes; }
  const std::vector<std::string>& Faults() const { return moFaults; }
  /// Answers that are left.
  std::size_t Unused() const;

  // For the renderer only.
  void RunModal(Form& oForm);
  MsgBoxResult RunMsgBox(const MsgBoxRequest& oRequest);
  DialogAnswer RunChooseFile(FileDialog& oDialog);
  DialogAnswer RunChooseFont(FontDialog& oDialog);
  DialogAnswer RunChoosePage(PageDialog& oDialog);
  void RunDoEvents();

 private:
  [[noreturn]] void Fault(const std::string& sWhat);
  template <class Queue>
  auto Next(Queue& oQueue, const std::string& sWhat);
  /// The fields of a dialog that wasn't confirmed stay as they were.
  template <class Dialog, class Act>
  static DialogAnswer Answer(Dialog& oDialog, const Act& oAct) {
    Dialog oFilled = oDialog;
    const DialogAnswer oAnswer = oAct(oFilled);
    if (oAnswer.bConfirmed) oDialog = std::move(oFilled);
    return oAnswer;
  }

  std::deque<std::function<void(Form&)>> moModal;
  std::deque<std::function<MsgBoxResult(const MsgBoxRequest&)>> moMsgBox;
  std::deque<std::function<DialogAnswer(FileDialog&)>> moChooseFile;
  std::deque<std::function<DialogAnswer(FontDialog&)>> moChooseFont;
  std::deque<std::function<DialogAnswer(PageDialog&)>> moChoosePage;
  std::deque<std::function<void()>> moDoEvents;
  std::vector<MsgBoxRequest> moBoxes;
  std::vector<std::string> moFaults;
};

}  // namespace Forms
