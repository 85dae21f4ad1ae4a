#include "Connect.h"

#include "FMain.h"
#include "Guard.h"
#include "MXRegistry.h"
#include "Toolkit.h"

namespace {

using namespace MXRegistry;

constexpr TextView sModule = u"Connect";
constexpr TextView sEntryCaption = u"Tarvane Quillon...";
constexpr TextView sAddIns = u"Add-Ins";
constexpr TextView sToolBarName = u"Tarvane";
constexpr std::int32_t lTypeButton = 1, lPositionTop = 1, lProtectNoCustomize = 1;

Routine HostRoutine(TextView sName) {
  return {sModule, sName, ErrorIds::BoundaryActiveX, ErrorIds::SeverityNormal, ErrorIds::RetryNone};
}

template <class Call>
void Ignoring(Call&& oCall) {
  try {
    oCall();
  } catch (const std::exception&) {
    // Something that doesn't exist needn't be removed.
  }
}

/// Failure 91 for an object that isn't there because the step that makes it failed and was ignored.
template <class T>
T& Existing(T* po) {
  if (!po) throw Failure(91);
  return *po;
}

/// The properties of a toolbar that are kept, in the order of reading and writing.
struct Place {
  TextView sValue;
  std::int32_t (CommandBar::*Get)() const;
  void (CommandBar::*Set)(std::int32_t);
};
constexpr Place Places[] = {
    {u"Position", &CommandBar::Position, &CommandBar::SetPosition},
    {u"RowIndex", &CommandBar::RowIndex, &CommandBar::SetRowIndex},
    {u"Left", &CommandBar::Left, &CommandBar::SetLeft},
    {u"Top", &CommandBar::Top, &CommandBar::SetTop},
};

class PlaceKey {
 public:
  PlaceKey()
      : mhKey(OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"IDEToolBar\\", KEY_ALL_ACCESS)) {}
  ~PlaceKey() { CloseRegKey(mhKey); }
  PlaceKey(const PlaceKey&) = delete;
  PlaceKey& operator=(const PlaceKey&) = delete;
  operator std::int32_t() const { return mhKey; }

 private:
  std::int32_t mhKey;
};

}  // namespace

Connect::Connect(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters)
    : moToolkit(oToolkit), moPrinters(oPrinters) {}

Connect::~Connect() = default;

void Connect::OnConnection(VBE& oVBInst, ConnectMode nConnectMode) {
  Guard(HostRoutine(u"IDTExtensibility_OnConnection"), [&](GuardScope& oScope) {
    if (!VBInst) VBInst = &oVBInst;
    if (!moMain) moMain = std::make_unique<FMain>(moToolkit, moPrinters);
    if (nConnectMode == ConnectMode::AfterStartup || nConnectMode == ConnectMode::Startup)
      AddMenus();
    if (nConnectMode == ConnectMode::External)
      oScope.Step([&] { moMain->Display(*VBInst, *this); });
  });
}

void Connect::OnAddInsUpdate() {
  Guard(HostRoutine(u"IDTExtensibility_OnAddInsUpdate"),
        [&](GuardScope& oScope) { oScope.Step([&] { Existing(VBInst).Addins().Update(); }); });
}

// Each call of the IDE is a step of its own, so that trying one again adds nothing twice.
void Connect::AddMenus() {
  Guard({sModule, u"AddMenus"}, [&](GuardScope& oScope) {
    RemoveAddInMenus();
    AddMenuEntry(oScope);
    AddToolBar(oScope);
    oScope.Step([&] { moToolkit.Clipboard().SetPicture(u"Quillon"); });
    // The IDE takes a control's picture only from the clipboard; the clipboard's content is lost.
    oScope.Step([&] { Existing(moMenu).PasteFace(); });
    oScope.Step([&] { Existing(moButton).PasteFace(); });
    oScope.Step([&] { RestorePlace(); });
  });
}

void Connect::AddMenuEntry(GuardScope& oScope) {
  oScope.Step(
      [&] { moMenu = &Existing(VBInst).CommandBars().Item(sAddIns).Controls().Add(lTypeButton); });
  oScope.Step([&] { Existing(moMenu).SetCaption(sEntryCaption); });
  oScope.Step([&] { moMenuEvents = OnClick(moMenu, u"moMenuEvents_Click"); });
}

void Connect::AddToolBar(GuardScope& oScope) {
  oScope.Step([&] { moToolBar = &Existing(VBInst).CommandBars().Add(sToolBarName, lPositionTop); });
  oScope.Step([&] { Existing(moToolBar).SetProtection(lProtectNoCustomize); });
  oScope.Step([&] { moButton = &Existing(moToolBar).Controls().Add(lTypeButton); });
  oScope.Step([&] { moButtonEvents = OnClick(moButton, u"moButtonEvents_Click"); });
  oScope.Step([&] { Existing(moButton).SetTooltipText(sEntryCaption); });
}

Connection Connect::OnClick(CommandBarControl* poControl, TextView sRoutine) {
  return Existing(VBInst)
      .Events()
      .CommandBarEvents(Existing(poControl))
      .Click.Connect([this, sRoutine](CommandBarControl&, bool&, bool&) { Clicked(sRoutine); });
}

void Connect::RestorePlace() {
  CommandBar& oToolBar = Existing(moToolBar);
  const PlaceKey hKey;
  for (const Place& oPlace : Places)
    (oToolBar.*oPlace.Set)(GetRegLong(hKey, oPlace.sValue, (oToolBar.*oPlace.Get)()));
  oToolBar.SetVisible(GetRegBool(hKey, u"Visible", true));
}

void Connect::SavePlace() const {
  const PlaceKey hKey;
  for (const Place& oPlace : Places) SetRegLong(hKey, oPlace.sValue, (moToolBar->*oPlace.Get)());
  SetRegBool(hKey, u"Visible", moToolBar->Visible());
}

void Connect::RemoveAddInMenus() {
  ForgetControls();
  Ignoring([&] { Existing(VBInst).CommandBars().Item(sToolBarName).Delete(); });
  Ignoring([&] {
    CommandBarControls& oControls = Existing(VBInst).CommandBars().Item(sAddIns).Controls();
    // From the end: deleting one moves those behind it.
    for (std::int32_t i = oControls.Count(); i > 0; --i)
      Ignoring([&] {
        if (oControls.Item(i).Caption() == sEntryCaption) oControls.Item(i).Delete();
      });
  });
}

void Connect::ForgetControls() {
  moMenuEvents.Disconnect();
  moButtonEvents.Disconnect();
  moMenu = moButton = nullptr;
  moToolBar = nullptr;
}

// Without menus, or after they were removed, there is no place to save.
void Connect::OnDisconnection(std::int32_t) {
  Guard(HostRoutine(u"IDTExtensibility_OnDisconnection"), [&](GuardScope& oScope) {
    if (moToolBar) oScope.Step([&] { SavePlace(); });
    moMenuEvents.Disconnect();
    if (moMenu) oScope.Step([&] { moMenu->Delete(); });
    moButtonEvents.Disconnect();
    if (moButton) oScope.Step([&] { moButton->Delete(); });
    if (moToolBar) oScope.Step([&] { moToolBar->Delete(); });
    ForgetControls();
    if (moMain) oScope.Step([&] { moMain->Unload(); });
    moMain.reset();
  });
}

void Connect::Clicked(TextView sRoutine) {
  Guard({sModule, sRoutine, ErrorIds::BoundaryVB}, [&](GuardScope& oScope) {
    oScope.Step([&] { Existing(moMain.get()).Display(Existing(VBInst), *this); });
  });
}
