// Projects, components, code: each object holds the disk host's own, and asks it anew each time.
#include "Dual.h"
#include "HostObjects.h"
#include "Retyped.h"

namespace {

VARIANT_BOOL Bool(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}
template <class Result>
Result Lacking() {
  throw Failure(445);
}

struct PropertyValue {
  Text name;
  VARTYPE type;
  Text text{};
  std::int32_t number = 0;
};
using PropertyValues = std::vector<PropertyValue>;

PropertyValues ValuesOf(VBComponent& component) {
  PropertyValues values{{u"Name", VT_BSTR, component.Name()}};
  const ComponentType type = component.Type();
  if (type == ComponentType::VBForm || type == ComponentType::MDIChild)
    values.push_back({u"MDIChild", VT_BOOL, {}, Bool(type == ComponentType::MDIChild)});
  if (type == ComponentType::Class)
    values.push_back({u"Instancing", VT_I4, {}, component.Property(u"Instancing")});
  return values;
}

IProperties* MakeProperties(HostWorld& world, PropertyValues values);

class PropertyObject : public Dual<IProperty> {
 public:
  PropertyObject(HostWorld& world, PropertyValues all, std::size_t place)
      : Dual(world), mAll(std::move(all)), mValue(mAll[place]) {}
  GET(BSTR, Name, Bstr(mValue.name))
  GET(VARIANT, Value, Held())
  GET(IProperties*, Collection, MakeProperties(mWorld, mAll))

 private:
  VARIANT Held() const {
    VARIANT out;
    VariantInit(&out);
    out.vt = mValue.type;
    if (out.vt == VT_BSTR)
      out.bstrVal = Bstr(mValue.text);
    else if (out.vt == VT_BOOL)
      out.boolVal = static_cast<VARIANT_BOOL>(mValue.number);
    else
      out.lVal = mValue.number;
    return out;
  }
  const PropertyValues mAll;
  const PropertyValue& mValue;
};

class PropertyList : public Dual<IProperties> {
 public:
  PropertyList(HostWorld& world, PropertyValues values) : Dual(world), mValues(std::move(values)) {}
  ASK(IProperty*, Item, (VARIANT index, IProperty** out), ItemAt(index))
  GET(IDispatch*, Parent, nullptr)

 private:
  IProperty* ItemAt(const VARIANT& index) {
    const auto at = [this](std::int32_t place) -> const PropertyValue& {
      return mValues[static_cast<std::size_t>(place) - 1];
    };
    const std::int32_t place = PlaceOf(index, static_cast<std::int32_t>(mValues.size()),
                                       [&](std::int32_t i) { return at(i).name; });
    return new PropertyObject(mWorld, mValues, static_cast<std::size_t>(place) - 1);
  }
  const PropertyValues mValues;
};

IProperties* MakeProperties(HostWorld& world, PropertyValues values) {
  return new PropertyList(world, std::move(values));
}

IVBProjects* MakeProjects(HostWorld& world);
IVBComponents* MakeComponents(HostWorld& world, VBProject& project);
IVBComponent* MakeComponent(HostWorld& world, VBComponent& component);
ICodeModule* MakeModule(HostWorld& world, CodeModule& module);
IMembers* MakeMembers(HostWorld& world, Members& members);
IVBControls* MakeControls(HostWorld& world, VBControls& controls);

class MemberObject : public Dual<IMember> {
 public:
  MemberObject(HostWorld& world, Member& member) : Dual(world), mMember(member) {}
#define TEXT_ATTRIBUTE(name)                                            \
  GET(BSTR, name, Bstr(mMember.Attribute(MemberAttribute::name).sText)) \
  PUT(BSTR, name, mMember.SetAttribute(MemberAttribute::name, {Text(TextOf(value)), 0}))
#define NUMBER_ATTRIBUTE(type, name)                                                   \
  GET(type, name, static_cast<type>(mMember.Attribute(MemberAttribute::name).lNumber)) \
  PUT(type, name, mMember.SetAttribute(MemberAttribute::name, {{}, value}))
  GET(IMembers*, Collection, MakeMembers(mWorld, mMember.Parent()))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(BSTR, Name, Bstr(mMember.Name()))
  GET(LONG, Type, static_cast<LONG>(mMember.Type()))
  GET(LONG, Scope, static_cast<LONG>(mMember.Scope()))
  GET(VARIANT_BOOL, Static, Lacking<VARIANT_BOOL>())
  GET(LONG, CodeLocation, mMember.CodeLocation())
  TEXT_ATTRIBUTE(Description)
  NUMBER_ATTRIBUTE(LONG, HelpContextID)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, Hidden)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, Browsable)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, UIDefault)
  NUMBER_ATTRIBUTE(LONG, StandardMethod)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, Bindable)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, DefaultBind)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, DisplayBind)
  NUMBER_ATTRIBUTE(VARIANT_BOOL, RequestEdit)
  TEXT_ATTRIBUTE(Category)
  TEXT_ATTRIBUTE(PropertyPage)

 private:
  Member& mMember;
};

class MembersObject : public Dual<IMembers> {
 public:
  MembersObject(HostWorld& world, Members& members) : Dual(world), mMembers(members) {}
  GET(ICodeModule*, Parent, MakeModule(mWorld, mMembers.Parent()))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(LONG, Count, mMembers.Count())
  ASK(IMember*, Item, (VARIANT index, IMember** out),
      new MemberObject(mWorld,
                       mMembers.Item(PlaceOf(index, mMembers.Count(), [this](std::int32_t i) {
                         return mMembers.Item(i).Name();
                       }))))

 private:
  Members& mMembers;
};

class PaneObject : public Dual<ICodePane> {
 public:
  PaneObject(HostWorld& world, CodeModule& module) : Dual(world), mModule(module) {}
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(ICodeModule*, CodeModule, MakeModule(mWorld, mModule))
  METHOD(Show, (), mWorld.ide.ShowCode(&mModule.Parent()))

 private:
  CodeModule& mModule;
};

ProcKind Kind(LONG number) {
  if (number < 0 || number >= static_cast<LONG>(MQuillon::CodeKinds.size())) throw Failure(5);
  return MQuillon::CodeKinds[static_cast<std::size_t>(number)];
}

class ModuleObject : public Dual<ICodeModule> {
 public:
  ModuleObject(HostWorld& world, CodeModule& module) : Dual(world), mModule(module) {}
#define PROCEDURE_LINE(name)                                     \
  ASK(LONG, get_##name, (BSTR procedure, LONG kind, LONG * out), \
      mModule.name(TextOf(procedure), Kind(kind)))
  GET(IVBComponent*, Parent, MakeComponent(mWorld, mModule.Parent()))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(BSTR, Name, Bstr(mModule.Parent().Name()))
  PUT(BSTR, Name, Lacking<BSTR>(); (void)value)
  METHOD(AddFromString, (BSTR text), Insert(mModule.CountOfDeclarationLines() + 1, text))
  METHOD(AddFromFile, (BSTR), Lacking<int>())
  ASK(BSTR, get_Lines, (LONG start, LONG count, BSTR* out), Bstr(mModule.Lines(start, count)))
  GET(LONG, CountOfLines, mModule.CountOfLines())
  METHOD(InsertLines, (LONG line, BSTR text), Insert(line, text))
  METHOD(DeleteLines, (LONG start, LONG count), Delete(start, count))
  METHOD(ReplaceLine, (LONG line, BSTR text), Delete(line, 1); Insert(line, text))
  PROCEDURE_LINE(ProcStartLine)
  PROCEDURE_LINE(ProcCountLines)
  PROCEDURE_LINE(ProcBodyLine)
  ASK(BSTR, get_ProcOfLine, (LONG, LONG*, BSTR* out), Lacking<BSTR>())
  GET(LONG, CountOfDeclarationLines, mModule.CountOfDeclarationLines())
  ASK(LONG, CreateEventProc, (BSTR, BSTR, LONG* out), Lacking<LONG>())
  ASK(VARIANT_BOOL, Find,
      (BSTR, LONG*, LONG*, LONG*, LONG*, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL,
       VARIANT_BOOL* out),
      Lacking<VARIANT_BOOL>())
  GET(ICodePane*, CodePane, new PaneObject(mWorld, mModule))
  GET(IMembers*, Members, MakeMembers(mWorld, mModule.Members()))

 private:
  static constexpr std::size_t LongestLine = 1023;

  void Insert(LONG line, BSTR text) {
    for (const TextView typed : SplitLines(TextOf(text)))
      if (typed.size() > LongestLine) throw Failure(5, u"The line is too long");
    mModule.InsertLines(line, mWorld.manner.retypes ? Retyped(TextOf(text)) : Text(TextOf(text)));
  }
  // The IDE keeps a member's attributes in lines that it doesn't show, and that go with the others.
  // TODO: so do those of events and variables, when declarations are written anew; the add-in puts
  // back only those of procedures.
  void Delete(LONG start, LONG count) {
    ::Members& members = mModule.Members();
    for (std::int32_t i = 1; mWorld.manner.forgetsAttributes && i <= members.Count(); ++i) {
      Member& member = members.Item(i);
      const bool hasCode = member.Type() <= MemberType::Property;
      const std::int32_t line = member.CodeLocation();
      if (hasCode && line >= start && line < start + count) Forget(member);
    }
    mModule.DeleteLines(start, count);
  }
  static void Forget(Member& member) {
    for (int i = 0; i < MemberAttributeCount; ++i) {
      const auto attribute = static_cast<MemberAttribute>(i);
      const std::int32_t none = attribute == MemberAttribute::StandardMethod ? 0x60030000
                                : attribute == MemberAttribute::Browsable    ? -1
                                                                             : 0;
      try {
        member.SetAttribute(attribute, {{}, none});
      } catch (const Failure&) {  // one that this member can't have
      }
    }
  }
  CodeModule& mModule;
};

class ControlObject : public Dual<IVBControl> {
 public:
  ControlObject(HostWorld& world, VBControls& controls, std::int32_t place)
      : Dual(world), mControls(controls), mPlace(place) {}
  GET(IVBControls*, Collection, MakeControls(mWorld, mControls))
  GET(IProperties*, Properties,
      MakeProperties(mWorld, {{u"Name", VT_BSTR, mControls.ItemName(mPlace)}}))

 private:
  VBControls& mControls;
  const std::int32_t mPlace;
};

class ControlsObject : public Dual<IVBControls> {
 public:
  ControlsObject(HostWorld& world, VBControls& controls) : Dual(world), mControls(controls) {}
  ASK(IVBControl*, Item, (VARIANT index, VARIANT, IVBControl** out),
      new ControlObject(mWorld, mControls,
                        PlaceOf(index, mControls.Count(),
                                [this](std::int32_t i) { return mControls.ItemName(i); })))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(LONG, Count, mControls.Count())

 private:
  VBControls& mControls;
};

class FormObject : public Dual<IVBForm> {
 public:
  FormObject(HostWorld& world, VBComponent& component) : Dual(world), mComponent(component) {}
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(IVBComponent*, Parent, MakeComponent(mWorld, mComponent))
  GET(IVBControls*, VBControls, MakeControls(mWorld, *mComponent.DesignerControls()))

 private:
  VBComponent& mComponent;
};

class ComponentObject : public Dual<IVBComponent> {
 public:
  ComponentObject(HostWorld& world, VBComponent& component) : Dual(world), mComponent(component) {}
  ASK(BSTR, get_FileNames, (SHORT index, BSTR* out), Bstr(mComponent.FileNames(index)))
  GET(SHORT, FileCount, static_cast<SHORT>(mComponent.FileCount()))
  GET(BSTR, Name, Bstr(mComponent.Name()))
  GET(IDispatch*, Designer,
      mComponent.DesignerControls() ? new FormObject(mWorld, mComponent) : nullptr)
  GET(ICodeModule*, CodeModule,
      mComponent.CodeModule() ? MakeModule(mWorld, *mComponent.CodeModule()) : nullptr)
  GET(LONG, Type, IdeType())
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(IVBComponents*, Collection, MakeComponents(mWorld, mComponent.Parent()))
  GET(VARIANT_BOOL, HasOpenDesigner, Bool(mComponent.DesignerControls() != nullptr))
  GET(IProperties*, Properties, MakeProperties(mWorld, ValuesOf(mComponent)))
  METHOD(Activate, (), mWorld.ide.ShowCode(&mComponent))
  GET(BSTR, DesignerID, Bstr(mComponent.DesignerID()))

 private:
  // An MDI child is a form as any other: its property tells the difference.
  LONG IdeType() const {
    const ComponentType type = mComponent.Type();
    return MQuillon::ToNumber(type == ComponentType::MDIChild ? ComponentType::VBForm : type);
  }
  VBComponent& mComponent;
};

class ProjectObject : public Dual<IVBProject> {
 public:
  ProjectObject(HostWorld& world, VBProject& project) : Dual(world), mProject(project) {}
  GET(BSTR, Name, Bstr(mProject.Name()))
  GET(BSTR, FileName, Bstr(mProject.FileName()))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(IVBProjects*, Collection, MakeProjects(mWorld))
  GET(LONG, Type, MQuillon::ToNumber(mProject.Type()))
  GET(VARIANT_BOOL, Saved, Bool(mWorld.ide.ChangedPaths().empty()))
  GET(IVBComponents*, VBComponents, MakeComponents(mWorld, mProject))

 private:
  VBProject& mProject;
};

class ComponentsObject : public Dual<IVBComponents> {
 public:
  ComponentsObject(HostWorld& world, VBProject& project)
      : Dual(world), mProject(project), mComponents(project.VBComponents()) {}
  ASK(IVBComponent*, Item, (VARIANT index, IVBComponent** out),
      MakeComponent(mWorld,
                    mComponents.Item(PlaceOf(index, mComponents.Count(), [this](std::int32_t i) {
                      return mComponents.Item(i).Name();
                    }))))
  GET(IVBProject*, Parent, new ProjectObject(mWorld, mProject))
  GET(LONG, Count, mComponents.Count())
  GET(IVBE*, VBE, MakeIde(mWorld))

 private:
  VBProject& mProject;
  VBComponents& mComponents;
};

class ProjectsObject : public Dual<IVBProjects> {
 public:
  explicit ProjectsObject(HostWorld& world)
      : Dual(world), mProjects(world.ide.Root().VBProjects()) {}
  ASK(IVBProject*, Item, (VARIANT index, IVBProject** out),
      new ProjectObject(mWorld,
                        mProjects.Item(PlaceOf(index, mProjects.Count(), [this](std::int32_t i) {
                          return mProjects.Item(i).Name();
                        }))))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(IVBE*, Parent, MakeIde(mWorld))
  GET(LONG, Count, mProjects.Count())

 private:
  VBProjects& mProjects;
};

IVBProjects* MakeProjects(HostWorld& world) {
  return new ProjectsObject(world);
}
IVBComponents* MakeComponents(HostWorld& world, VBProject& project) {
  return new ComponentsObject(world, project);
}
IVBComponent* MakeComponent(HostWorld& world, VBComponent& component) {
  return new ComponentObject(world, component);
}
ICodeModule* MakeModule(HostWorld& world, CodeModule& module) {
  return new ModuleObject(world, module);
}
IMembers* MakeMembers(HostWorld& world, Members& members) {
  return new MembersObject(world, members);
}
IVBControls* MakeControls(HostWorld& world, VBControls& controls) {
  return new ControlsObject(world, controls);
}

class WindowObject : public Dual<IWindow> {
 public:
  using Dual::Dual;
  GET(BSTR, Caption, Bstr(u"Host"))
  GET(LONG, HWnd, static_cast<LONG>(reinterpret_cast<LONG_PTR>(mWorld.mainWindow)))
};

class AddInObject : public Dual<IAddIn> {
 public:
  using Dual::Dual;
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(BSTR, ProgId, Bstr(AddInName))
  GET(VARIANT_BOOL, Connect, VARIANT_TRUE)
  PUT(VARIANT_BOOL, Connect, (void)value; Lacking<int>())
  GET(IDispatch*, Object, nullptr)
  PUT(IDispatch*, Object, (void)value)
};

class AddinsObject : public Dual<IAddins> {
 public:
  using Dual::Dual;
  ASK(IAddIn*, Item, (VARIANT index, IAddIn** out),
      (PlaceOf(index, 1, [](std::int32_t) { return Text(AddInName); }), MakeAddIn(mWorld)))
  GET(IVBE*, VBE, MakeIde(mWorld))
  GET(LONG, Count, 1)
  METHOD(Update, (), mWorld.ide.Root().Addins().Update())
};

class IdeObject : public Dual<IVBE> {
 public:
  using Dual::Dual;
  GET(BSTR, Name, Bstr(u"Microsoft Visual Basic"))
  GET(BSTR, FullName, Lacking<BSTR>())
  GET(BSTR, LastUsedPath, Lacking<BSTR>())
  PUT(BSTR, LastUsedPath, (void)value)
  GET(BSTR, Version, Bstr(u"6.00"))
  GET(SHORT, ReadOnlyMode, 0)
  PUT(SHORT, ReadOnlyMode, (void)value)
  GET(IVBProjects*, VBProjects, MakeProjects(mWorld))
  GET(ICommandBars*, CommandBars, MakeBars(mWorld))
  GET(IDispatch*, CodePanes, Lacking<IDispatch*>())
  GET(IDispatch*, Windows, Lacking<IDispatch*>())
  GET(IEvents*, Events, MakeEvents(mWorld))
  GET(IAddins*, Addins, new AddinsObject(mWorld))
  GET(IVBProject*, ActiveVBProject, First())
  PUT(IVBProject*, ActiveVBProject, (void)value)
  GET(IVBComponent*, SelectedVBComponent, nullptr)
  GET(BSTR, TemplatePath, Lacking<BSTR>())
  GET(IWindow*, MainWindow, mWorld.mainWindow ? new WindowObject(mWorld) : nullptr)
  GET(IWindow*, ActiveWindow, nullptr)
  GET(ICodePane*, ActiveCodePane, Pane())
  PUT(ICodePane*, ActiveCodePane, (void)value)
  METHOD(Quit, (), Lacking<int>())
  GET(LONG, DisplayModel, 1)
  PUT(LONG, DisplayModel, (void)value)

 private:
  IVBProject* First() {
    auto& projects = mWorld.ide.Root().VBProjects();
    return projects.Count() > 0 ? new ProjectObject(mWorld, projects.Item(1)) : nullptr;
  }
  ICodePane* Pane() {
    ::CodePane* const pane = mWorld.ide.Root().ActiveCodePane();
    return pane ? new PaneObject(mWorld, pane->CodeModule()) : nullptr;
  }
};

}  // namespace

IVBE* MakeIde(HostWorld& world) {
  return new IdeObject(world);
}

IAddIn* MakeAddIn(HostWorld& world) {
  return new AddInObject(world);
}

std::int32_t PlaceOf(const VARIANT& index, std::int32_t count, Text (*nameAt)(void*, std::int32_t),
                     void* collection) {
  VARIANT plain;
  VariantInit(&plain);
  if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&index)))) throw Failure(13);
  std::int32_t place = 0;
  if (plain.vt == VT_BSTR) {
    for (std::int32_t i = 1; place == 0 && i <= count; ++i)
      if (EqualNoCase(nameAt(collection, i), TextOf(plain.bstrVal))) place = i;
  } else if (SUCCEEDED(VariantChangeType(&plain, &plain, 0, VT_I4))) {
    place = plain.lVal;
  } else {
    VariantClear(&plain);
    throw Failure(13);
  }
  VariantClear(&plain);
  if (place < 1 || place > count) throw Failure(9);
  return place;
}
