#include "ComCommandBars.h"

#include "ComFailure.h"

namespace {

/// Looked for among all when the source doesn't find it by its identifier.
ComPtr<IConnectionPoint> WalkTo(IConnectionPointContainer& container, REFIID events) {
  ComPtr<IEnumConnectionPoints> all;
  if (FAILED(container.EnumConnectionPoints(all.Out())) || !all) return {};
  ComPtr<IConnectionPoint> point;
  ULONG fetched = 0;
  while (all->Next(1, point.Out(), &fetched) == S_OK && fetched == 1) {
    IID offered = {};
    if (SUCCEEDED(point->GetConnectionInterface(&offered)) && offered == events) return point;
  }
  return {};
}

ComPtr<IConnectionPoint> PointOf(const ComPtr<IUnknown>& source, REFIID events) {
  const auto container = source.As<IConnectionPointContainer>(IID_IConnectionPointContainer);
  if (!container) return {};
  ComPtr<IConnectionPoint> point;
  if (SUCCEEDED(container->FindConnectionPoint(events, point.Out())) && point) return point;
  return WalkTo(*container.Get(), events);
}

}  // namespace

std::shared_ptr<ComClicks> ComClicks::Listen(ComPtr<IUnknown> source, IComEntry& entry) {
  std::shared_ptr<ComClicks> result(new ComClicks(entry));
  const auto point = PointOf(source, ClickEventsId);
  if (!point) throw Failure(459, u"The IDE raises no clicks for the control", u"IDE");
  const auto sink = ComPtr<ClickSink>::Take(new ClickSink(result));
  CheckCom(point->Advise(sink.Get(), &result->mCookie));
  result->mPoint = point;
  result->mSource = std::move(source);
  return result;
}

void ComClicks::Stop() noexcept {
  if (mPoint) mPoint->Unadvise(mCookie);
  mPoint = {};
  mSource = {};
}

void ComClicks::Raise(IDispatch* control, bool& handled, bool& cancelDefault) {
  if (!mEntry.EnterAlone()) return;
  struct Leaving {
    IComEntry& entry;
    ~Leaving() { entry.Leave(); }
  } const leaving{mEntry};
  ComStore store;
  ComControl clicked({store, store, nullptr}, LateBound(ComPtr<IDispatch>::Share(control)));
  Click(clicked, handled, cancelDefault);
}

::CommandBarEvents& ComEvents::CommandBarEvents(CommandBarControl& oControl) {
  auto* const control = dynamic_cast<ComControl*>(&oControl);
  if (!control) throw Failure(13);
  const LateBound events = mIDE.GetObject(nullptr, u"Events");
  ComPtr<IUnknown> source = events.Get(u"CommandBarEvents", control->Raw()).AsUnknown();
  mClicks.push_back(ComClicks::Listen(std::move(source), mEntry));
  return *mClicks.back();
}

void ComEvents::Prune() {
  std::erase_if(mClicks, [](const auto& clicks) {
    if (clicks->Click.IsHeard()) return false;
    clicks->Stop();
    return true;
  });
}

void ComControl::Delete() {
  if (mWorld.events) mWorld.events->Prune();
  mObject.Call(u"Delete");
}

CommandBarControl& ComBarControls::Add(std::int32_t nType) {
  LateBound object = mObject.GetObject(nullptr, u"Add", nType);
  if (!object) throw Failure(91);
  return mWorld.kept.Make<ComControl>(mWorld, std::move(object));
}

CommandBarControl& ComBarControls::Item(std::int32_t lIndex) {
  LateBound object = mObject.GetObject(nullptr, u"Item", lIndex);
  if (!object) throw Failure(9);
  return mWorld.passing.Make<ComControl>(mWorld, std::move(object));
}

CommandBarControls& ComBar::Controls() {
  LateBound object = mObject.GetObject(nullptr, u"Controls");
  if (!object) throw Failure(91);
  return mWorld.passing.Make<ComBarControls>(mWorld, std::move(object));
}

void ComBar::Delete() {
  if (mWorld.events) mWorld.events->Prune();
  mObject.Call(u"Delete");
}

void ComBar::PutPlace(TextView property, std::int32_t value) {
  try {
    mObject.Put(property, value);
  } catch (const Failure&) {
    // See the head of the class.
  }
}

CommandBar& ComBars::Item(TextView sName) {
  LateBound object = Object().GetObject(nullptr, u"Item", sName);
  if (!object) throw Failure(5, u"The IDE has no command bar " + Text(sName), u"IDE");
  return mWorld.passing.Make<ComBar>(mWorld, std::move(object));
}

CommandBar& ComBars::Add(TextView sName, std::int32_t lPosition) {
  LateBound object = Object().GetObject(nullptr, u"Add", sName, lPosition);
  if (!object) throw Failure(91);
  return mWorld.kept.Make<ComBar>(mWorld, std::move(object));
}
