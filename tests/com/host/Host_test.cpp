// The COM host itself, by a client that knows names only: it shows what is on disk, refuses what
// the IDE refuses, and tells of clicks.
#include "HostFixture.h"

#include <ocidl.h>
#include <olectl.h>

#include "CIDEHandler.h"
#include "ComIDE.h"
#include "Failure.h"
#include "HostCommandBars.h"
#include "IdeModel.h"
#include "MQuillon.h"
#include "MRules.h"
#include "Retyped.h"

namespace {

HRESULT Vb(int number) {
  return static_cast<HRESULT>(0x800A0000 + number);
}

using Listing = std::vector<std::string>;

void AddTo(Listing& listing, TextView name, int number, TextView text = {}) {
  listing.push_back(ToUtf8(name) + ' ' + std::to_string(number) + ' ' + ToUtf8(text));
}

Listing Listed(VBE& ide) {
  Listing out;
  for (int p = 1; p <= ide.VBProjects().Count(); ++p) {
    VBProject& project = ide.VBProjects().Item(p);
    AddTo(out, project.Name(), MQuillon::ToNumber(project.Type()), project.FileName());
    for (int c = 1; c <= project.VBComponents().Count(); ++c) {
      VBComponent& component = project.VBComponents().Item(c);
      AddTo(out, component.Name(), MQuillon::ToNumber(component.Type()), component.FileNames(1));
      AddTo(out, component.DesignerID(), component.FileCount());
      VBControls* const controls = component.DesignerControls();
      for (int i = 1; controls && i <= controls->Count(); ++i) AddTo(out, controls->ItemName(i), i);
      CodeModule* const module = component.CodeModule();
      if (!module) continue;
      AddTo(out, module->Lines(1, module->CountOfLines()), module->CountOfDeclarationLines());
      for (int m = 1; m <= module->Members().Count(); ++m) {
        Member& member = module->Members().Item(m);
        AddTo(out, member.Name(), static_cast<int>(member.Type()),
              member.Attribute(MemberAttribute::Description).sText);
        AddTo(out, u"at", member.CodeLocation());
      }
    }
  }
  return out;
}

class HostTest : public HostFixture, protected IComEntry {
 protected:
  bool EnterAlone() noexcept override { return true; }
  void Leave() noexcept override {}
  ComPtr<IDispatch> Root() const {
    return ComPtr<IUnknown>::Share(ide.Object()).As<IDispatch>(IID_IDispatch);
  }
  IComEntry& entry = *this;
};

TEST_F(HostTest, AdaptersShowWhatIsOnDisk) {
  for (const bool bare : {false, true}) {
    world->manner.bareErrors = bare;
    ComIDE adapters(Root(), entry);
    const Listing listing = Listed(adapters);
    EXPECT_GT(listing.size(), 200U);
    EXPECT_EQ(listing, Listed(disk->Root()));
  }
  EXPECT_EQ(Component(u"AtelierApp", u"FJob")("Type").Number(), 5);
}

TEST_F(HostTest, WhatTheIdeRefusesIsRefused) {
  struct Row {
    const char* name;
    HRESULT code;
    bool record;
    void (*act)(const Late& ide, const Late& module);
  };
  static const Row rows[] = {
      {"a member has no Parent", DISP_E_UNKNOWNNAME, false,
       [](const Late&, const Late& module) { module("Members")("Item", 1)("Parent"); }},
      {"a component has no Parent", DISP_E_UNKNOWNNAME, false,
       [](const Late&, const Late& module) { module("Parent")("Parent"); }},
      {"an argument too few", DISP_E_BADPARAMCOUNT, false,
       [](const Late&, const Late& module) { module("Lines", 1); }},
      {"an argument too many", DISP_E_BADPARAMCOUNT, false,
       [](const Late&, const Late& module) { module("Lines", 1, 1, 1); }},
      {"an argument of another type", DISP_E_TYPEMISMATCH, false,
       [](const Late&, const Late& module) { module("Lines", u"x", 1); }},
      {"Item isn't a property", DISP_E_MEMBERNOTFOUND, false,
       [](const Late& it, const Late&) {
         it("VBProjects").Call("Item", DISPATCH_PROPERTYGET, {1});
       }},
      {"Count can't be set", DISP_E_MEMBERNOTFOUND, false,
       [](const Late& it, const Late&) { it("VBProjects").Set("Count", 1); }},
      {"no item 0", Vb(9), true, [](const Late& it, const Late&) { it("VBProjects")("Item", 0); }},
      {"no item behind the last", Vb(9), true,
       [](const Late& it, const Late&) { it("VBProjects")("Item", 4); }},
      {"no item of the name", Vb(9), true,
       [](const Late& it, const Late&) { it("VBProjects")("Item", u"None"); }},
      {"an object is no index", Vb(13), true,
       [](const Late& it, const Late&) { it("VBProjects")("Item", it); }},
      {"no line 0", Vb(9), true, [](const Late&, const Late& module) { module("Lines", 0, 1); }},
      {"no procedure of the kind", Vb(35), true,
       [](const Late&, const Late& module) { module("ProcStartLine", u"Append", 3); }},
      {"no kind 7", Vb(5), true,
       [](const Late&, const Late& module) { module("ProcStartLine", u"Append", 7); }},
      {"no line so long", Vb(5), true,
       [](const Late&, const Late& module) { module("InsertLines", 1, Text(1024, u'x')); }},
      {"no bar of the name", Vb(5), true,
       [](const Late& it, const Late&) { it("CommandBars")("Item", u"None"); }},
      {"a second bar of the name", Vb(5), true,
       [](const Late& it, const Late&) { it("CommandBars")("Add", u"Add-Ins"); }},
      {"a control deleted twice", Vb(5), true,
       [](const Late& it, const Late&) {
         const Late button = it("CommandBars")("Item", u"Add-Ins")("Controls")("Add", 1);
         button("Delete");
         button("Delete");
       }},
      {"no picture on the clipboard", Vb(5), true,
       [](const Late& it, const Late&) {
         OpenClipboard(nullptr);
         EmptyClipboard();
         CloseClipboard();
         it("CommandBars")("Item", u"Add-Ins")("Controls")("Add", 1)("PasteFace");
       }},
      {"what is no control has no clicks", Vb(13), true,
       [](const Late& it, const Late&) { it("Events")("CommandBarEvents", it); }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    for (const bool bare : {false, true}) {
      world->manner.bareErrors = bare;
      const LateError error = ErrorOf([&] { row.act(ide, Module()); });
      EXPECT_EQ(static_cast<unsigned long>(error.code), static_cast<unsigned long>(row.code));
      EXPECT_EQ(error.record, row.record && !bare);
    }
  }
}

TEST_F(HostTest, ErrorsOfTheVTableTellTheSame) {
  ICodeModule* module = nullptr;
  ASSERT_EQ(
      Module().Object()->QueryInterface(__uuidof(ICodeModule), reinterpret_cast<void**>(&module)),
      S_OK);
  LONG line = 0;
  BSTR name = Bstr(u"Nobody");
  EXPECT_EQ(module->get_ProcBodyLine(name, 0, &line), Vb(35));
  IErrorInfo* info = nullptr;
  ASSERT_EQ(GetErrorInfo(0, &info), S_OK);
  BSTR text = nullptr;
  info->GetDescription(&text);
  EXPECT_EQ(ToUtf8(TextOf(text)), ToUtf8(FailureText(35)));
  SysFreeString(text);
  SysFreeString(name);
  info->Release();
  module->Release();
}

TEST_F(HostTest, MembersFailWhenTheyAreTold) {
  const Late module = Module();
  world->manner.faults["ICodeModule.InsertLines"] = E_FAIL;
  EXPECT_EQ(ErrorOf([&] { module("InsertLines", 1, u"x"); }).code, E_FAIL);
  world->manner.faults.clear();
  EXPECT_EQ(ErrorOf([&] { module("InsertLines", 1, u"x"); }).code, S_OK);
  EXPECT_EQ(world->Calls("ICodeModule", "InsertLines"), 2);
}

TEST(Retyped, IsWhatTheEditorMakesOfAnInsertion) {
  static const struct {
    TextView typed, shown;
  } rows[] = {
      {u"  on  error goto  Fail", u"  On Error GoTo Fail"},
      {u"10 IF a=b THEN x.end=1: exit SUB", u"10 If a = b Then x.end = 1: Exit Sub"},
      {u"s = \"on  error\"   ' if  then", u"s = \"on  error\"   ' if  then"},
      {u"rem  if  then", u"rem  if  then"},
      {u"#if a=b then", u"#if a=b then"},
      {u"If a<=b And c>=d Then f x:=1 _", u"If a<=b And c>=d Then f x:=1 _"},
      {u"s = \"open", u"s = \"open"},
      {u"dim Iffy  \r\n\r\nEND sub\r\n", u"Dim Iffy\r\n\r\nEnd Sub\r\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.typed));
    EXPECT_EQ(ToUtf8(Retyped(row.typed)), ToUtf8(row.shown));
    EXPECT_EQ(ToUtf8(Retyped(row.shown)), ToUtf8(row.shown));
  }
}

TEST_F(HostTest, InsertedLinesAreRetypedAndAttributesGoWithTheirLines) {
  const Late module = Component(u"AtelierCore", u"CJob")("CodeModule");
  const int start = module("ProcStartLine", u"Key", 3).Number();
  const int body = module("ProcBodyLine", u"Key", 3).Number();
  const int count = module("ProcCountLines", u"Key", 3).Number();
  const Text lines = module("Lines", start, count).AsText();
  EXPECT_NE(module("Members")("Item", u"Key")("Description").AsText(), u"");
  module("DeleteLines", start, count);
  module("InsertLines", start, Text(lines).replace(lines.find(u"End P"), 3, u"end "));
  EXPECT_EQ(module("ProcBodyLine", u"Key", 3).Number(), body);
  EXPECT_EQ(ToUtf8(module("Lines", start, count).AsText()), ToUtf8(lines));
  EXPECT_EQ(module("Members")("Item", u"Key")("Description").AsText(), u"");
  module("Members")("Item", u"Key").Set("Description", u"New");
  EXPECT_EQ(module("Members")("Item", u"Key")("Description").AsText(), u"New");
}

/// Counts clicks, and does what it is told at each.
class Sink : public IDispatch {
 public:
  std::function<void()> onClick;
  int clicks = 0;
  ULONG references = 1;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    const bool knows = iid == IID_IUnknown || iid == __uuidof(CommandBarControlEvents);
    *out = knows ? this : nullptr;
    return knows ? (++references, S_OK) : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* all, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    EXPECT_EQ(id, 1);
    EXPECT_EQ(all->cArgs, 3U);
    EXPECT_EQ(all->rgvarg[0].vt, VT_BYREF | VT_BOOL);
    EXPECT_EQ(Late(all->rgvarg[2].pdispVal)("Caption").AsText(), u"Here");
    ++clicks;
    if (onClick) onClick();
    return S_OK;
  }
};

/// Gives each procedure that isn't locked the handler of the samples' template file.
void GiveHandlers(VBE& ide) {
  MQuillon::Initialize();
  CTemplate templates(MRules::oRules);
  templates.LoadTemplateFile(FromUtf8(QUILLON_SOURCE_DIR "/samples/Template.dat"));
  ASSERT_EQ(templates.LoadErrors(), 0);
  TextArray ofModules, ofProcedures;
  templates.GetModuleTemplates(ofModules);
  templates.GetProcTemplates(ofProcedures);
  MQuillon::LoadLookups(ofModules, ofProcedures);
  CIDEHandler handler;
  handler.LoadProjects(ide);
  handler.oTemplate = &templates;
  handler.ForceLoadGroupComponents();
  for (const ProcedureHandle h : handler.Procedures())
    if (handler.Locked(h) == MQuillon::TriState::False)
      handler.SetProcTemplate(h, handler.ProcName(h).front() == u'(' ? u"Module" : u"Standard");
  handler.ApplyPendingSettings(ModelScope::Group(), false, MQuillon::LineNumAction::AsRule);
}

TEST_F(HostTest, RequestThroughTheAdaptersGivesTheBytesOfTheDisk) {
  const Files before = FilesOf(folder / "ide");
  GiveHandlers(disk->Root());
  EXPECT_TRUE(disk->Save().oFailed.empty());
  const Files wanted = FilesOf(folder / "ide");
  EXPECT_TRUE(wanted != before);
  for (const bool retypes : {false, true}) {
    SCOPED_TRACE(retypes);
    const auto copy = CopyOfSamples(retypes ? "retyped" : "as written");
    Open(copy / "Atelier.vbg");
    world->manner.retypes = retypes;
    ComIDE adapters(Root(), entry);
    GiveHandlers(adapters);
    adapters.LetGo();
    EXPECT_TRUE(disk->Save().oFailed.empty());
    for (const auto& [name, bytes] : FilesOf(copy)) EXPECT_EQ(bytes, wanted.at(name)) << name;
  }
}

TEST_F(HostTest, ClicksReachTheSinksUntilTheyAreTakenBack) {
  for (const bool asDispatch : {false, true}) {
    SCOPED_TRACE(asDispatch);
    world->manner.eventsAsDispatch = asDispatch;
    const Late button = ide("CommandBars")("Item", u"Add-Ins")("Controls")("Add", 1);
    button.Set("Caption", u"Here");
    Late source = ide("Events")("CommandBarEvents", button);
    EXPECT_EQ(source.Type(), asDispatch ? VT_DISPATCH : VT_UNKNOWN);
    IConnectionPointContainer* container = nullptr;
    IConnectionPoint* point = nullptr;
    ASSERT_EQ(source.Object()->QueryInterface(IID_IConnectionPointContainer,
                                              reinterpret_cast<void**>(&container)),
              S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &point), CONNECT_E_NOCONNECTION);
    ASSERT_EQ(container->FindConnectionPoint(__uuidof(CommandBarControlEvents), &point), S_OK);
    Sink sink;
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
    CommandBarControl& host = disk->Bars().Item(u"Add-Ins").Controls().Item(1);
    disk->Click(host);
    // A click may end its own connection, and what raises it.
    sink.onClick = [&] {
      EXPECT_EQ(point->Unadvise(cookie), S_OK);
      EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
      point->Release();
      container->Release();
      source = {};
      button("Delete");
    };
    disk->Click(host);
    disk->Click(host);
    EXPECT_EQ(sink.clicks, 2);
    EXPECT_EQ(sink.references, 1U);
  }
}

}  // namespace
