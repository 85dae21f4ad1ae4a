// The add-in as the IDE meets it: registered, made by its program id, connected, clicked, used at
// its window, disconnected, unloaded; and no object of the IDE is held at the end. The library is
// expected beside this program.
#include <cstdlib>

#include "HostCommandBars.h"
#include "HostFixture.h"
#include "IdeModel.h"
#include "WindowHand.h"

namespace {

constexpr const char* Window = "Tarvane Quillon";
constexpr TextView Entry = u"Tarvane Quillon...", ToolBar = u"Tarvane";
constexpr wchar_t ProgId[] = L"TarvaneQuillon.Connect";
constexpr wchar_t Settings[] = L"Software\\TarvaneQuillonTest";
constexpr wchar_t ListKey[] =
    L"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\TarvaneQuillon.Connect";

std::filesystem::path ProgramFolder() {
  wchar_t name[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, name, MAX_PATH);
  return std::filesystem::path(name).parent_path();
}

bool HasKey(HKEY root, const wchar_t* key) {
  HKEY open = nullptr;
  const bool has = RegOpenKeyExW(root, key, 0, KEY_READ, &open) == ERROR_SUCCESS;
  if (has) RegCloseKey(open);
  return has;
}

/// How the IDE calls an add-in: by the v-table, or by Invoke.
enum class Way { VTable, Invoke };

class AddInTest : public HostFixture {
 protected:
  void SetUp() override {
    const auto file = ProgramFolder() / "Quillon.dll";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "Quillon.dll isn't beside this program";
    library = LoadLibraryW(file.c_str());
    ASSERT_NE(library, nullptr) << GetLastError();
    OwnSettings();
    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    HostFixture::SetUp();
    world->mainWindow = home = CreateWindowW(L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                             0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
  }
  void TearDown() override {
    entry = {};
    if (library) {
      EXPECT_EQ(Call("DllCanUnloadNow"), S_OK);
      EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
      EXPECT_FALSE(HasKey(HKEY_CLASSES_ROOT, ProgId));
      EXPECT_FALSE(HasKey(HKEY_CURRENT_USER, ListKey));
    }
    if (home) DestroyWindow(home);
    ide = {};
    if (world) world->Print(std::cout);
    HostFixture::TearDown();
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, Settings);
  }
  /// The settings of whoever runs the tests stay as they are.
  static void OwnSettings() {
    HKEY own = nullptr;
    RegDeleteTreeW(HKEY_CURRENT_USER, Settings);
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, Settings, &own), ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, own), ERROR_SUCCESS);
    RegCloseKey(own);
  }
  HRESULT Call(const char* entryPoint) {
    const auto found = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void (*)()>(GetProcAddress(library, entryPoint)));
    return found ? found() : E_NOINTERFACE;
  }
  void Create() {
    CLSID id{};
    IDispatch* made = nullptr;
    ASSERT_EQ(CLSIDFromProgID(ProgId, &id), S_OK);
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                               reinterpret_cast<void**>(&made)),
              S_OK);
    entry = Late::Owned(made);
  }
  template <class ByTable, class ByName>
  void Tell(Way way, ByTable byTable, ByName byName) {
    if (way == Way::Invoke) return byName();
    IAddInEntry* table = nullptr;
    ASSERT_EQ(
        entry.Object()->QueryInterface(__uuidof(IAddInEntry), reinterpret_cast<void**>(&table)),
        S_OK);
    EXPECT_EQ(byTable(*table), S_OK);
    table->Release();
  }
  void ConnectIn(Way way, int mode) {
    IAddIn* const self = MakeAddIn(*world);
    auto* const root = static_cast<IDispatch*>(ide.Object());
    SAFEARRAY* none = SafeArrayCreateVector(VT_VARIANT, 0, 0);
    Tell(
        way, [&](IAddInEntry& it) { return it.OnConnection(root, mode, self, &none); },
        [&] {
          entry("OnConnection", ide, mode, Late(static_cast<IDispatch*>(self)), Late(&none));
        });
    SafeArrayDestroy(none);
    self->Release();
  }
  void Disconnect(Way way) {
    Tell(
        way, [](IAddInEntry& it) { return it.OnDisconnection(1, nullptr); },
        [&] { entry("OnDisconnection", 1, Late(static_cast<SAFEARRAY**>(nullptr))); });
  }
  int Entries() {
    HostControls& controls = disk->Bars().Item(u"Add-Ins").Controls();
    int count = 0;
    for (int i = 1; i <= controls.Count(); ++i) count += controls.Item(i).Caption() == Entry;
    return count;
  }
  /// Null when there is none.
  HostCommandBar* Bar() {
    for (int i = 1; i <= disk->Bars().Count(); ++i)
      if (disk->Bars().Item(i).Name() == ToolBar) return &disk->Bars().Item(i);
    return nullptr;
  }

  HMODULE library = nullptr;
  HWND home = nullptr;
  Late entry;
};

TEST_F(AddInTest, IsListedForTheUser) {
  EXPECT_TRUE(HasKey(HKEY_CLASSES_ROOT, ProgId));
  EXPECT_TRUE(HasKey(HKEY_CURRENT_USER, ListKey));
}

TEST_F(AddInTest, MenusComeAndGoWithTheConnection) {
  static const struct {
    const char* name;
    int mode, entries;
    bool leftOver, asDispatch, bareErrors;
    const char* fault = nullptr;
    int ignored = 0;  // boxes that tell of the fault
  } rows[] = {
      {"behind the start of the IDE", 0, 1, false, false, false},
      {"at the start of the IDE", 1, 1, false, true, false},
      {"from the command line", 3, 0, false, false, false},
      {"with a toolbar left over", 0, 1, true, false, false},
      {"with a toolbar left over, errors bare", 0, 1, true, true, true},
      {"no face to be had", 0, 1, false, false, false, "ICommandBarButton.PasteFace", 2},
  };
  for (const Way way : {Way::VTable, Way::Invoke}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      world->manner = {.bareErrors = row.bareErrors, .eventsAsDispatch = row.asDispatch};
      if (row.fault) world->manner.faults[row.fault] = E_FAIL;
      if (row.leftOver) {
        disk->Bars().Add(ToolBar, 1);
        disk->Bars().Item(u"Add-Ins").Controls().Add(1).SetCaption(Entry);
      }
      WindowHand hand(home);
      for (int i = 0; i < row.ignored; ++i) hand.Press("", "Ignore");
      Create();
      ConnectIn(way, row.mode);
      EXPECT_EQ(Entries(), row.entries);
      EXPECT_EQ(Bar() != nullptr, row.entries == 1);
      if (Bar()) {
        EXPECT_TRUE(Bar()->Visible());
        EXPECT_EQ(Bar()->Controls().Count(), 1);
        EXPECT_EQ(Bar()->Controls().Item(1).TooltipText(), Entry);
        EXPECT_EQ(Bar()->Controls().Item(1).Face().sBytes.empty(),
                  row.fault && std::string(row.fault).ends_with("PasteFace"));
      }
      Disconnect(way);
      EXPECT_TRUE(hand.IsDone());
      EXPECT_EQ(Entries(), 0);
      EXPECT_EQ(Bar(), nullptr);
      entry = {};
    }
  }
}

TEST_F(AddInTest, WindowOpensByClickAndByConnection) {
  for (const int mode : {0, 2}) {
    SCOPED_TRACE(mode);
    WindowHand hand(home);
    Create();
    hand.Close(Window);
    ConnectIn(Way::VTable, mode);
    ConnectIn(Way::VTable, 3);  // a second connection changes nothing
    if (mode == 0) disk->Click(disk->Bars().Item(u"Add-Ins").Controls().Item(1));
    EXPECT_TRUE(hand.IsDone());
    if (mode == 0) {
      hand.Close(Window);
      disk->Click(Bar()->Controls().Item(1));
    }
    EXPECT_TRUE(hand.IsDone());
    EXPECT_TRUE(IsWindowEnabled(home));
    Disconnect(Way::VTable);
    entry = {};
  }
}

TEST_F(AddInTest, RequestAtTheWindowGivesTheBytesOfTheCommandLine) {
  const auto wanted = CopyOfSamples("line");
  const std::string command =
      (ProgramFolder() / "quillon.exe").string() + " apply --suggested --settings \"\" -q -t " +
      (wanted / "Template.dat").string() + ' ' + (wanted / "Atelier.vbg").string();
  ASSERT_EQ(std::system(command.c_str()), 0);
  world->manner.retypes = false;
  WindowHand hand(home);
  Create();
  hand.Choose(Window, "Copy Suggested");
  hand.Press("Copy Suggested", "All Projects");
  hand.Choose(Window, "Apply Pending");
  hand.Press("Apply Pending", "All Projects");
  hand.Choose(Window, "Exit");
  ConnectIn(Way::VTable, 2);
  EXPECT_TRUE(hand.IsDone());
  Disconnect(Way::VTable);
  entry = {};
  EXPECT_TRUE(disk->Save().oFailed.empty());
  EXPECT_EQ(FilesOf(folder / "ide"), FilesOf(wanted));
  EXPECT_TRUE(FilesOf(wanted) != FilesOf(QUILLON_SOURCE_DIR "/samples"));
}

}  // namespace
