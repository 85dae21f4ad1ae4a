// Command bars, their buttons, and who is told of clicks.
#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

#include "Dual.h"
#include "HostCommandBars.h"
#include "HostObjects.h"

namespace {

bool IsMissing(const VARIANT& value) {
  return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}
Text TextIn(const VARIANT& value) {
  if (value.vt != VT_BSTR) throw Failure(5);
  return Text(TextOf(value.bstrVal));
}
std::int32_t NumberIn(const VARIANT& value, std::int32_t missing) {
  if (IsMissing(value)) return missing;
  VARIANT number;
  VariantInit(&number);
  if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4))) throw Failure(13);
  return number.lVal;
}

/// Empty unless a bitmap of a button's size is on the clipboard.
Picture ClipboardFace() {
  constexpr LONG size = 16;
  Picture face;
  if (!OpenClipboard(nullptr)) return face;
  BITMAP bitmap{};
  if (HANDLE held = GetClipboardData(CF_BITMAP); held && GetObjectW(held, sizeof bitmap, &bitmap) &&
                                                 bitmap.bmWidth == size && bitmap.bmHeight == size)
    face.sBytes = "bitmap";
  CloseClipboard();
  return face;
}

// Tells a button of this host from anything else.
constexpr IID ButtonOfHost = {
    0x9a4e1c70, 0x3b5d, 0x4f1e, {0x8c, 0x21, 0x6d, 0x70, 0x1f, 0x44, 0x5a, 0x93}};

class ButtonObject : public Dual<ICommandBarButton> {
 public:
  ButtonObject(HostWorld& world, CommandBarControl& held) : Dual(world), control(held) {}
  GET(BSTR, Caption, Bstr(control.Caption()))
  PUT(BSTR, Caption, control.SetCaption(TextOf(value)))
  GET(BSTR, TooltipText, Bstr(control.TooltipText()))
  PUT(BSTR, TooltipText, control.SetTooltipText(TextOf(value)))
  METHOD(Delete, (VARIANT), control.Delete())
  METHOD(PasteFace, (), control.PasteFace())

  CommandBarControl& control;

 private:
  bool IsAlso(const IID& iid) const override {
    return iid == __uuidof(ICommandBarControl) || iid == ButtonOfHost;
  }
};

class ControlsObject : public Dual<ICommandBarControls> {
 public:
  ControlsObject(HostWorld& world, CommandBarControls& controls)
      : Dual(world), mControls(controls) {}
  GET(LONG, Count, mControls.Count())
  ASK(ICommandBarControl*, get_Item, (VARIANT index, ICommandBarControl** out),
      new ButtonObject(mWorld, mControls.Item(PlaceOf(index, mControls.Count(), [this](int i) {
        return mControls.Item(i).Caption();
      }))))
  ASK(ICommandBarControl*, Add,
      (VARIANT type, VARIANT, VARIANT, VARIANT, VARIANT, ICommandBarControl** out),
      new ButtonObject(mWorld, mControls.Add(NumberIn(type, 1))))

 private:
  CommandBarControls& mControls;
};

class BarObject : public Dual<ICommandBar> {
 public:
  BarObject(HostWorld& world, CommandBar& bar) : Dual(world), mBar(bar) {}
#define BAR_NUMBER(type, name)                    \
  GET(type, name, static_cast<type>(mBar.name())) \
  PUT(type, name, mBar.Set##name(value))
  GET(BSTR, Name, Bstr(mBar.Name()))
  GET(ICommandBarControls*, Controls, new ControlsObject(mWorld, mBar.Controls()))
  METHOD(Delete, (), mBar.Delete())
  BAR_NUMBER(LONG, Position)
  BAR_NUMBER(LONG, RowIndex)
  BAR_NUMBER(LONG, Left)
  BAR_NUMBER(LONG, Top)
  BAR_NUMBER(LONG, Protection)
  GET(VARIANT_BOOL, Visible, mBar.Visible() ? VARIANT_TRUE : VARIANT_FALSE)
  PUT(VARIANT_BOOL, Visible, mBar.SetVisible(value != VARIANT_FALSE))

 private:
  CommandBar& mBar;
};

class BarsObject : public Dual<ICommandBars> {
 public:
  explicit BarsObject(HostWorld& world) : Dual(world), mBars(world.ide.Bars()) {
    mBars.SetClipboard(ClipboardFace);
  }
  GET(LONG, Count, mBars.Count())
  ASK(ICommandBar*, get_Item, (VARIANT index, ICommandBar** out),
      new BarObject(mWorld, index.vt == VT_BSTR ? mBars.Item(TextIn(index))
                                                : mBars.Item(NumberIn(index, 0))))
  ASK(ICommandBar*, Add, (VARIANT name, VARIANT position, VARIANT, VARIANT, ICommandBar** out),
      new BarObject(mWorld, mBars.Add(TextIn(name), NumberIn(position, 1))))

 private:
  HostCommandBars& mBars;
};

/// What tells of the clicks on one control, for as long as it is held.
class ClickSource : public IDispatch, public IConnectionPointContainer, public IConnectionPoint {
 public:
  ClickSource(HostWorld& world, CommandBarControl& control) : mWorld(world) {
    mWorld.Born("CommandBarEvents");
    mClicks = world.ide.Root().Events().CommandBarEvents(control).Click.Connect(
        [this](CommandBarControl& clicked, bool& handled, bool& cancel) {
          Tell(clicked, handled, cancel);
        });
  }
  virtual ~ClickSource() {
    if (!mSinks.empty()) mWorld.Failed("CommandBarEvents released without Unadvise", E_UNEXPECTED);
    for (const auto& [cookie, sink] : mSinks) sink->Release();
    mWorld.Gone("CommandBarEvents");
  }
  ClickSource(const ClickSource&) = delete;
  ClickSource& operator=(const ClickSource&) = delete;
  IUnknown* Identity() { return static_cast<IDispatch*>(this); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    *out = nullptr;
    if (iid == IID_IUnknown || (iid == IID_IDispatch && mWorld.manner.eventsAsDispatch))
      *out = static_cast<IDispatch*>(this);
    if (iid == IID_IConnectionPointContainer) *out = static_cast<IConnectionPointContainer*>(this);
    if (iid == IID_IConnectionPoint) *out = static_cast<IConnectionPoint*>(this);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mCount; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --mCount;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* out) override { return *out = 0, S_OK; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** out) override {
    if (iid != __uuidof(CommandBarControlEvents)) return CONNECT_E_NOCONNECTION;
    AddRef();
    return *out = this, S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* out) override {
    return *out = __uuidof(CommandBarControlEvents), S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** out) override {
    AddRef();
    return *out = this, S_OK;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    IDispatch* told = nullptr;
    if (FAILED(sink->QueryInterface(__uuidof(CommandBarControlEvents),
                                    reinterpret_cast<void**>(&told))))
      return mWorld.Failed("CommandBarEvents.Advise", CONNECT_E_CANNOTCONNECT);
    mSinks.emplace_back(*cookie = ++mLastCookie, told);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    const auto place = std::ranges::find(mSinks, cookie, &std::pair<DWORD, IDispatch*>::first);
    if (place == mSinks.end())
      return mWorld.Failed("CommandBarEvents.Unadvise", CONNECT_E_NOCONNECTION);
    IDispatch* const sink = place->second;
    mSinks.erase(place);
    sink->Release();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  // A click may take away the sink that is told, and this source.
  void Tell(CommandBarControl& clicked, bool& handled, bool& cancel) {
    AddRef();
    const auto sinks = mSinks;
    for (const auto& [cookie, sink] : sinks) sink->AddRef();
    for (const auto& [cookie, sink] : sinks) {
      VARIANT_BOOL flags[] = {cancel ? VARIANT_TRUE : VARIANT_FALSE,
                              handled ? VARIANT_TRUE : VARIANT_FALSE};
      VARIANT arguments[3];
      for (int i = 0; i < 2; ++i) {
        arguments[i].vt = VT_BYREF | VT_BOOL;
        arguments[i].pboolVal = &flags[i];
      }
      arguments[2].vt = VT_DISPATCH;
      arguments[2].pdispVal = new ButtonObject(mWorld, clicked);
      DISPPARAMS all{arguments, nullptr, 3, 0};
      if (const HRESULT result = sink->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                              &all, nullptr, nullptr, nullptr);
          FAILED(result))
        mWorld.Failed("CommandBarEvents.Click", result);
      VariantClear(&arguments[2]);
      cancel = flags[0] != VARIANT_FALSE;
      handled = flags[1] != VARIANT_FALSE;
      sink->Release();
    }
    Release();
  }

  HostWorld& mWorld;
  Connection mClicks;
  std::vector<std::pair<DWORD, IDispatch*>> mSinks;
  DWORD mLastCookie = 0;
  ULONG mCount = 1;
};

class EventsObject : public Dual<IEvents> {
 public:
  using Dual::Dual;
  ASK(VARIANT, get_CommandBarEvents, (IDispatch * control, VARIANT* out), SourceOf(control))

 private:
  VARIANT SourceOf(IDispatch* control) {
    ICommandBarButton* held = nullptr;
    if (!control || FAILED(control->QueryInterface(ButtonOfHost, reinterpret_cast<void**>(&held))))
      throw Failure(13);
    auto& button = static_cast<ButtonObject&>(*held);
    VARIANT out;
    out.vt = mWorld.manner.eventsAsDispatch ? VT_DISPATCH : VT_UNKNOWN;
    out.punkVal = (new ClickSource(mWorld, button.control))->Identity();
    held->Release();
    return out;
  }
};

}  // namespace

ICommandBars* MakeBars(HostWorld& world) {
  return new BarsObject(world);
}

IEvents* MakeEvents(HostWorld& world) {
  return new EventsObject(world);
}
