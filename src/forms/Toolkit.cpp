#include "Toolkit.h"

#include <algorithm>

#include "Failure.h"
#include "Form.h"

namespace Forms {

bool HasAnswer(MsgBoxButtons eButtons, MsgBoxResult eResult) {
  using enum MsgBoxResult;
  static const std::vector<MsgBoxResult> aeAnswer[] = {
      {Ok}, {Ok, Cancel}, {Abort, Retry, Ignore}, {Yes, No, Cancel}, {Yes, No}, {Retry, Cancel}};
  const auto& aeIts = aeAnswer[static_cast<std::size_t>(eButtons)];
  return std::find(aeIts.begin(), aeIts.end(), eResult) != aeIts.end();
}

void Screen::SetMousePointer(std::int32_t nPointer) {
  if (nPointer == mnPointer) return;
  mnPointer = nPointer;
  moRenderer.SetMousePointer(nPointer);
}

const Text& Toolkit::LoadResString(std::int32_t lId) const {
  const auto it = moStrings.find(lId);
  if (it == moStrings.end()) throw Failure(326, u"There is no text with the number " + ToText(lId));
  return it->second;
}

std::string Toolkit::Picture(TextView sKey, std::int32_t lPixels) const {
  return moPictures ? moPictures(sKey, lPixels) : std::string();
}

bool Toolkit::Blocked(const Form& oForm) const {
  const auto it =
      std::find_if(moModal.rbegin(), moModal.rend(), [](auto* po) { return po->Visible(); });
  return it != moModal.rend() && *it != &oForm;
}

MsgBoxResult Toolkit::MsgBox(MsgBoxRequest oRequest) {
  if (!oRequest.poOwner) oRequest.poOwner = mpoActive;
  if (oRequest.sTitle.empty()) oRequest.sTitle = msTitle;
  return moRenderer.MsgBox(oRequest);
}

MsgBoxResult Toolkit::MsgBox(TextView sPrompt, MsgBoxButtons eButtons, MsgBoxIcon eIcon,
                             TextView sTitle) {
  MsgBoxRequest oRequest;
  oRequest.sPrompt = sPrompt;
  oRequest.sTitle = sTitle;
  oRequest.eButtons = eButtons;
  oRequest.eIcon = eIcon;
  return MsgBox(std::move(oRequest));
}

bool Toolkit::LockWindowUpdate(Control* poControl) {
  if (poControl && mpoLocked && poControl != mpoLocked) return false;
  if (poControl == mpoLocked) return true;
  mpoLocked = poControl;
  moRenderer.LockDrawing(poControl);
  return true;
}

void Toolkit::FormLoaded(Form& oForm) {
  moLoaded.push_back(&oForm);
}

void Toolkit::FormGone(Form& oForm) {
  std::erase(moLoaded, &oForm);
  std::erase(moModal, &oForm);
  ControlGone(oForm);
  ActivateNext(oForm);
}

void Toolkit::SetActiveForm(Form* poForm) {
  if (poForm == mpoActive) return;
  Form* const poOld = mpoActive;
  mpoActive = poForm;
  if (poOld) poOld->Activated(false);
  if (poForm && mpoActive == poForm) poForm->Activated(true);
}

void Toolkit::ActivateNext(const Form& oForm) {
  if (mpoActive != &oForm) return;
  Form* poNext = nullptr;
  for (Form* po : moLoaded) {
    const bool bOwnerFound = poNext && poNext == oForm.Owner();
    if (po->UserEnabled() && !bOwnerFound) poNext = po;
  }
  mpoActive = nullptr;
  SetActiveForm(poNext);
}

void Toolkit::PopModal(const Form& oForm) {
  std::erase(moModal, &oForm);
}

void Toolkit::ControlGone(const Control& oControl) {
  if (mpoLocked == &oControl) LockWindowUpdate(nullptr);
}

}  // namespace Forms
