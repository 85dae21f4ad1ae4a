// The IDE's command bars, and clicks on their controls.
#pragma once

#include "ClickSink.h"
#include "ComStore.h"
#include "CommandBars.h"
#include "IComEntry.h"
#include "LateBound.h"

/// The clicks of one control. They come from the time of making until Stop.
class ComClicks : public CommandBarEvents, public std::enable_shared_from_this<ComClicks> {
 public:
  /// source: what the IDE gave as the events of the control. Failure 459 when it raises none.
  static std::shared_ptr<ComClicks> Listen(ComPtr<IUnknown> source, IComEntry& entry);
  ~ComClicks() override { Stop(); }
  void Stop() noexcept;
  /// For the sink. A click while the add-in is at work is passed over.
  void Raise(IDispatch* control, bool& handled, bool& cancelDefault);

 private:
  explicit ComClicks(IComEntry& entry) : mEntry(entry) {}

  IComEntry& mEntry;
  ComPtr<IUnknown> mSource;  // to let go of it ends the clicks
  ComPtr<IConnectionPoint> mPoint;
  DWORD mCookie = 0;
};

/// Both hands of the IDE's events: gives those of a control, and takes them back.
class ComEvents : public Events {
 public:
  ComEvents(LateBound ide, IComEntry& entry) : mIDE(std::move(ide)), mEntry(entry) {}
  ::CommandBarEvents& CommandBarEvents(CommandBarControl& oControl) override;
  /// Takes back the clicks that nobody listens to any more: a control may be deleted only behind
  /// it.
  void Prune();

 private:
  LateBound mIDE;
  IComEntry& mEntry;
  std::vector<std::shared_ptr<ComClicks>> mClicks;
};

/// What all objects of the command bars need.
struct ComBarWorld {
  ComStore& kept;     ///< for what the add-in makes
  ComStore& passing;  ///< for what it only looks at
  ComEvents* events;  ///< null: none to take back
};

class ComControl : public CommandBarControl {
 public:
  ComControl(ComBarWorld world, LateBound object) : mWorld(world), mObject(std::move(object)) {}
  Text Caption() const override { return mObject.Get(u"Caption").AsText(); }
  void SetCaption(TextView sCaption) override { mObject.Put(u"Caption", sCaption); }
  Text TooltipText() const override { return mObject.Get(u"TooltipText").AsText(); }
  void SetTooltipText(TextView sText) override { mObject.Put(u"TooltipText", sText); }
  void PasteFace() override { mObject.Call(u"PasteFace"); }
  void Delete() override;
  IDispatch* Raw() const { return mObject.Raw(); }

 private:
  ComBarWorld mWorld;
  LateBound mObject;
};

class ComBarControls : public CommandBarControls {
 public:
  ComBarControls(ComBarWorld world, LateBound object) : mWorld(world), mObject(std::move(object)) {}
  CommandBarControl& Add(std::int32_t nType) override;
  std::int32_t Count() const override { return mObject.Get(u"Count").AsNumber(); }
  CommandBarControl& Item(std::int32_t lIndex) override;

 private:
  ComBarWorld mWorld;
  LateBound mObject;
};

/// A dock has not every row and place that was kept from another day: where the IDE refuses one,
/// the bar stays where it is.
class ComBar : public CommandBar {
 public:
  ComBar(ComBarWorld world, LateBound object) : mWorld(world), mObject(std::move(object)) {}
  Text Name() const override { return mObject.Get(u"Name").AsText(); }
  CommandBarControls& Controls() override;
  void Delete() override;
  std::int32_t Position() const override { return Number(u"Position"); }
  void SetPosition(std::int32_t lValue) override { PutPlace(u"Position", lValue); }
  std::int32_t RowIndex() const override { return Number(u"RowIndex"); }
  void SetRowIndex(std::int32_t lValue) override { PutPlace(u"RowIndex", lValue); }
  std::int32_t Left() const override { return Number(u"Left"); }
  void SetLeft(std::int32_t lValue) override { PutPlace(u"Left", lValue); }
  std::int32_t Top() const override { return Number(u"Top"); }
  void SetTop(std::int32_t lValue) override { PutPlace(u"Top", lValue); }
  bool Visible() const override { return mObject.Get(u"Visible").AsBool(); }
  void SetVisible(bool bValue) override { mObject.Put(u"Visible", bValue); }
  std::int32_t Protection() const override { return Number(u"Protection"); }
  void SetProtection(std::int32_t lValue) override { mObject.Put(u"Protection", lValue); }

 private:
  std::int32_t Number(TextView property) const { return mObject.Get(property).AsNumber(); }
  void PutPlace(TextView property, std::int32_t value);

  ComBarWorld mWorld;
  LateBound mObject;
};

class ComBars : public CommandBars {
 public:
  ComBars(ComBarWorld world, LateBound ide) : mWorld(world), mIDE(std::move(ide)) {}
  CommandBar& Item(TextView sName) override;
  CommandBar& Add(TextView sName, std::int32_t lPosition) override;

 private:
  LateBound Object() const { return mIDE.GetObject(nullptr, u"CommandBars"); }

  ComBarWorld mWorld;
  LateBound mIDE;
};
