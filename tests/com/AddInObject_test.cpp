#include "AddInObject.h"

#include <gtest/gtest.h>

#include "ClassFactory.h"
#include "Failure.h"
#include "FakeDispatch.h"

namespace {

/// An add-in that writes down what it is told, with a menu entry of its own.
class NotedAddIn : public IDTExtensibility {
 public:
  explicit NotedAddIn(std::vector<std::string>& notes) : mNotes(notes) {}
  ~NotedAddIn() override { mNotes.push_back("ended"); }
  void OnConnection(VBE& ide, ConnectMode mode) override {
    mNotes.push_back("connected " + std::to_string(static_cast<int>(mode)));
    if (mode == ConnectMode::External) return;
    mEntry = &ide.CommandBars().Item(u"Add-Ins").Controls().Add(1);
    mClicks = ide.Events().CommandBarEvents(*mEntry).Click.Connect(
        [this](CommandBarControl&, bool& handled, bool&) { Clicked(handled); });
  }
  void OnDisconnection(std::int32_t mode) override {
    mNotes.push_back("disconnected " + std::to_string(mode));
    mClicks.Disconnect();
    if (mEntry) mEntry->Delete();
  }
  void OnStartupComplete() override { throw Failure(5); }
  void OnAddInsUpdate() override {
    mNotes.push_back("update");
    if (update) update();
  }

  std::function<void()> clicked, update;

 private:
  void Clicked(bool& handled) {
    handled = true;
    mNotes.push_back("clicked");
    if (clicked) clicked();
  }

  std::vector<std::string>& mNotes;
  CommandBarControl* mEntry = nullptr;
  Connection mClicks;
};

struct Program : IAddInProgram {
  std::unique_ptr<IDTExtensibility> MakeAddIn() override {
    auto made = std::make_unique<NotedAddIn>(notes);
    addIn = made.get();
    return made;
  }
  bool HoldsGroup(const IDTExtensibility&) override { return false; }
  void CloseWindow(IDTExtensibility&) override { notes.push_back("closed"); }
  void SetIDE(const ComIDE*) override {}

  std::vector<std::string> notes;
  NotedAddIn* addIn = nullptr;
};

using Notes = std::vector<std::string>;

class AddInObjectTest : public testing::Test {
 protected:
  AddInObjectTest() {
    const auto Unknown = [](auto& fake) { return ComPtr<IUnknown>::Share(fake.Get()); };
    control->On(L"Delete", [this](const FakeDispatch::Arguments&, VARIANT*, EXCEPINFO*) {
      EXPECT_FALSE(clicks.Heard()) << "clicks are taken back before their control goes";
      return S_OK;
    });
    controls->Gives(L"Add", Unknown(control));
    bar->Gives(L"Controls", Unknown(controls));
    bars->Gives(L"Item", Unknown(bar));
    events->Gives(L"CommandBarEvents", clicks.Object(), VT_UNKNOWN);
    root->Gives(L"CommandBars", Unknown(bars)).Gives(L"Events", Unknown(events));
  }
  ~AddInObjectTest() override {
    object = {};
    for (auto* fake : {&root, &bars, &bar, &controls, &control, &events}) *fake = {};
    EXPECT_EQ(Alive::Count(), atStart) << "objects stay alive";
  }
  void Connect(long mode) {
    EXPECT_EQ(object->OnConnection(root.Get(), mode, nullptr, nullptr), S_OK);
  }

  const long atStart = Alive::Count();
  FakeClicks clicks, listed{false};  // the latter is found only among all
  ComPtr<FakeDispatch> root = FakeDispatch::Make(), bars = FakeDispatch::Make(),
                       bar = FakeDispatch::Make(), controls = FakeDispatch::Make(),
                       control = FakeDispatch::Make(), events = FakeDispatch::Make();
  Program program;
  ComPtr<AddInObject> object = ComPtr<AddInObject>::Take(new AddInObject(program));
  VARIANT_BOOL handled = VARIANT_FALSE;
};

TEST_F(AddInObjectTest, ClickReachesTheAddInUntilItIsDisconnected) {
  Connect(0);
  EXPECT_EQ(clicks.Click(handled, 2), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(clicks.Click(handled), S_OK);
  EXPECT_EQ(handled, VARIANT_TRUE);
  EXPECT_EQ(object->OnDisconnection(1, nullptr), S_OK);
  EXPECT_FALSE(clicks.Heard());
  EXPECT_EQ(program.notes, (Notes{"connected 0", "clicked", "disconnected 1", "ended"}));
}

TEST_F(AddInObjectTest, ClicksComeAlsoFromAPointThatOnlyTheListShows) {
  events->Gives(L"CommandBarEvents", listed.Object());
  Connect(0);
  EXPECT_EQ(listed.Click(handled), S_OK);
  EXPECT_EQ(program.notes.back(), "clicked");
  object->OnDisconnection(0, nullptr);
}

TEST_F(AddInObjectTest, CallsThroughTheOpenWindowWaitOrArePassedOver) {
  Connect(1);
  program.addIn->clicked = [&] {
    clicks.Click(handled);
    Connect(2);
    EXPECT_EQ(object->OnDisconnection(0, nullptr), S_OK);
    object = {};  // the IDE lets go of it as well
    program.notes.push_back("window ends");
  };
  EXPECT_EQ(clicks.Click(handled), S_OK);
  EXPECT_EQ(program.notes,
            (Notes{"connected 1", "clicked", "closed", "window ends", "disconnected 0", "ended"}));
}

TEST_F(AddInObjectTest, InvokeDoesWhatTheTableDoes) {
  VARIANT reversed[4] = {};
  reversed[2].vt = VT_I2;
  reversed[2].iVal = 2;
  reversed[3].vt = VT_UNKNOWN;
  reversed[3].punkVal = root.Get();
  DISPPARAMS four = {reversed, nullptr, 4, 0}, one = {reversed, nullptr, 1, 0};
  const auto Call = [&](DISPID id, DISPPARAMS& parameters) {
    return object->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  };
  wchar_t name[] = L"onaddinsupdate";
  wchar_t* names = name;
  DISPID id = 0;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
  EXPECT_EQ(Call(1, four), S_OK);
  program.addIn->update = [&] { object->OnAddInsUpdate(nullptr); };
  EXPECT_EQ(Call(id, one), S_OK);
  EXPECT_EQ(Call(4, one), S_OK) << "a failure stays inside";
  EXPECT_EQ(Call(1, one), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(5, one), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(program.notes, (Notes{"connected 2", "update"}));
}

TEST_F(AddInObjectTest, ClassMakesObjectsOrSaysNo) {
  const auto factory = ComPtr<ClassFactory>::Take(
      new ClassFactory([&]() -> IUnknown* { return new AddInObject(program); }));
  const auto broken = ComPtr<ClassFactory>::Take(new ClassFactory([] { return nullptr; }));
  ComPtr<IUnknown> made;
  void** const out = reinterpret_cast<void**>(made.Out());
  EXPECT_EQ(factory->CreateInstance(root.Get(), IID_IUnknown, out), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, out), E_NOINTERFACE);
  EXPECT_EQ(broken->CreateInstance(nullptr, IID_IUnknown, out), E_FAIL);
  EXPECT_EQ(factory->CreateInstance(nullptr, AddInInterfaceId, out), S_OK);
}

}  // namespace
