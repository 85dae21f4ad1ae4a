#include "Component.h"

#include "Form.h"
#include "Toolkit.h"

namespace Forms {

Component::Component(Form& oForm, TextView sName) : msName(sName), mpoForm(&oForm) {
  oForm.Register(*this);
}

Component::~Component() {
  mpPeer.reset();
  if (mpoForm) mpoForm->Unregister(*this);
}

Toolkit& Component::Kit() const {
  return mpoForm->App();
}

void Component::SetTag(TextView sTag) {
  Touch();
  msTag = sTag;
}

void Component::Reset() {
  msTag.clear();
}
void Component::CopyFrom(const Component& oOther) {
  msTag = oOther.msTag;
}

void Component::Realize() {
  if (!mpPeer && mpoForm->Loaded() && !Designing()) mpPeer = Kit().Renderer().MakePeer(*this);
}

void Component::SetElement(std::int32_t lIndex, const std::shared_ptr<Component>& pSelf) {
  mlIndex = lIndex;
  mpSelf = pSelf;
}

void Component::Touch() {
  mpoForm->EnsureLoaded();
}

void Component::Changed(Property eProperty, std::int32_t lIndex) {
  if (mpPeer) mpPeer->Changed(eProperty, lIndex);
}

bool Component::Designing() const {
  return mpoForm->Designing();
}

}  // namespace Forms
