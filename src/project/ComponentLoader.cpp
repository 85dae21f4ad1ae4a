#include "ComponentLoader.h"

#include <algorithm>

#include "ErrRead.h"
#include "ExpertFacts.h"
#include "HandlerGuard.h"
#include "LoadFailure.h"
#include "MQuillon.h"
#include "MXStringVB.h"
#include "ProcText.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

constexpr std::int32_t NoSuchProcedure = 35;
constexpr TextView TerminateMethod = u"Class_Terminate";

/// Folders whose components have a designer with controls: forms, user controls, property pages.
bool HasControls(std::int32_t folderType) {
  return folderType == 1 || folderType == 4 || folderType == 5;
}

/// The first word of line, which becomes what follows; empty behind the last.
TextView TakeWord(TextView& line) {
  constexpr TextView blanks = u" \t";
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
  const TextView word = line.substr(0, line.find_first_of(blanks));
  line.remove_prefix(word.size());
  return word;
}

/// The interface that a statement names, in lower case; empty for any other statement.
Text ImplementedInterface(TextView statement) {
  if (!EqualNoCase(TakeWord(statement), u"Implements")) return {};
  return LowerCase(TrimWhite(statement));
}

/// Calls visit for each statement of a line, comments cut. A colon ends a statement, with a blank
/// behind it or without; one in a literal doesn't.
template <class Visit>
void ForEachStatement(TextView line, Visit&& visit) {
  const TextView code = MXStringVB::TrimVBComments(line);
  const Text mask =
      code.find(u':') == TextView::npos ? Text() : MXStringVB::MaskVBLiterals(code, u"x");
  std::size_t start = 0;
  for (std::size_t end; (end = mask.find(u':', start)) != Text::npos; start = end + 1)
    visit(code.substr(start, end - start));
  visit(code.substr(start));
}

/// Whether a line declares a variable with events. The editor writes the word in one way; files
/// that it has not tidied have other letters, tabs, or a comma right ahead.
bool HasWithEvents(TextView line) {
  constexpr TextView Word = u"WithEvents", Blanks = u" \t,";
  if (line.find(u" WithEvents ") != TextView::npos) return true;
  const TextView code = MXStringVB::TrimVBComments(line);
  for (std::size_t i = code.find_first_of(Blanks); i != TextView::npos;
       i = code.find_first_of(Blanks, i + 1)) {
    const TextView word = code.substr(i + 1, Word.size() + 1);
    if (word.size() > Word.size() && Blanks.find(word.back()) != TextView::npos &&
        EqualNoCase(word.substr(0, Word.size()), Word))
      return true;
  }
  return false;
}

/// The words of line up to the name that it declares, in the letters of the editor, onto head.
/// True when the head goes on in the next line.
bool AddHeadWords(TextView line, Text& head) {
  static constexpr TextView words[] = {u"Public", u"Private", u"Friend",   u"Global",
                                       u"Static", u"Sub",     u"Function", u"Property",
                                       u"Get",    u"Set",     u"Let"};
  for (TextView word = TakeWord(line); !word.empty(); word = TakeWord(line)) {
    if (word == u"_") return true;
    const auto known = std::find_if(std::begin(words), std::end(words),
                                    [&](TextView w) { return EqualNoCase(w, word); });
    if (known == std::end(words)) break;
    head.append(*known).append(u" ");
  }
  return false;
}

/// The words of the head that begins in a line, up to its name. Files hold heads that no editor has
/// tidied: in other letter case, with tabs and many blanks, over several lines.
Text HeadWords(const SteppedModule& module, std::int32_t line) {
  const auto count = module.CountOfLines();
  Text text = module.Lines(line, 1), head;
  while (AddHeadWords(text, head) && ++line <= count) text = module.Lines(line, 1);
  return head;
}

/// The kind of the procedure whose head begins in a line; empty when there is none.
Text HeadType(const SteppedModule& module, std::int32_t line) {
  Text text = module.Lines(line, 1);
  const Text type = MQuillon::ProcTypeName(text);
  if (!type.empty()) return type;
  Text head = HeadWords(module, line);
  return MQuillon::ProcTypeName(head);
}

/// A head without a word for it is public.
MQuillon::MemberScope HeadScope(const SteppedModule& module, std::int32_t line) {
  const Text head = HeadWords(module, line);
  if (head.find(u"Private ") != Text::npos) return MQuillon::MemberScope::Private;
  return head.find(u"Friend ") != Text::npos ? MQuillon::MemberScope::Friend
                                             : MQuillon::MemberScope::Public;
}

template <class Visit>
void ForEachLine(TextView text, Visit&& visit) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(CrLf, start), text.size());
    visit(text.substr(start, end - start));
    start = end + CrLf.size();
  }
}

/// The first line of the procedure's body; 0 when the module has no procedure of the kind.
std::int32_t BodyLineIfThere(const CodeModule& module, TextView name, ProcKind kind) {
  try {
    return module.ProcBodyLine(name, kind);
  } catch (const Failure& failure) {
    if (failure.Number() != NoSuchProcedure) throw;
    return 0;
  }
}

}  // namespace

ComponentLoader::ComponentLoader(GuardScope& scope, const ModelOptions& options, GroupModel& model,
                                 LoadProgress& progress, ComponentHandle component)
    : mScope(scope),
      mOptions(options),
      mModel(model),
      mProgress(progress),
      mComponent(component),
      mRecord(model.Component(component)) {}

void ComponentLoader::Load() {
  if (!mRecord.sDesignerName.empty()) mModel.AddEventSource(mComponent, mRecord.sDesignerName);
  if (HasControls(mRecord.lFolderType)) AddControlSources();
  mModule = LoadFailure::FindModule(*mRecord.oComponent, mRecord.oError);
  if (!mModule) {
    LoadFailure::Mark(mRecord, u"CodeModule Property of VBComponent Object");
    return;
  }
  AddForeignInterfaces();
  AddVariableSources();
  LoadDeclarations();
  LoadMembers();
}

void ComponentLoader::AddControlSources() {
  VBControls* controls = nullptr;
  try {
    controls = mRecord.oComponent->DesignerControls();
  } catch (...) {
    LoadFailure::KeepCurrent(mRecord.oError);
  }
  if (!controls) {
    LoadFailure::Mark(mRecord, u"VBControls Property of VBComponent Object");
    return;
  }
  const auto count = SteppedControls(mScope, *controls).Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    mScope.Step([&] { mModel.AddEventSource(mComponent, controls->ItemName(i)); });
  }
}

void ComponentLoader::AddForeignInterfaces() {
  const SteppedModule module(mScope, *mModule);
  mDeclarationLines = module.CountOfDeclarationLines();
  if (mDeclarationLines < 1) return;
  ForEachLine(module.Lines(1, mDeclarationLines), [&](TextView line) {
    ForEachStatement(line, [&](TextView statement) {
      Text name = ImplementedInterface(statement);
      // One of a library that the group itself builds isn't foreign either.
      if (name.empty() || mModel.HasComponentNamed(name.substr(name.rfind(u'.') + 1))) return;
      mModel.AddForeignInterface(mComponent, std::move(name));
    });
  });
}

void ComponentLoader::AddVariableSources() {
  const SteppedMembers members(mScope, SteppedModule(mScope, *mModule).Members());
  const auto count = members.Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    Member& member = members.Item(i);
    const auto type = SteppedMember(mScope, member).Type();
    if (type < MemberType::Variable || type > MemberType::Constant) continue;
    mProgress.Advance(*mRecord.oComponent, member);
    if (type == MemberType::Variable) mScope.Step([&] { AddVariableSource(member); });
  }
}

void ComponentLoader::AddVariableSource(const Member& member) {
  const auto line = member.CodeLocation();
  if (line < 1) return;
  // A line can declare any number of variables; it is looked at once for all of them.
  if (line != mVariableLine) {
    mHasEvents = HasWithEvents(mModule->Lines(line, 1));
    mVariableLine = line;
  }
  if (mHasEvents) mModel.AddEventSource(mComponent, member.Name());
}

void ComponentLoader::LoadMembers() {
  const SteppedMembers members(mScope, SteppedModule(mScope, *mModule).Members());
  const auto count = members.Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    Member& member = members.Item(i);
    const SteppedMember stepped(mScope, member);
    const auto type = stepped.Type();
    if (type != MemberType::Method && type != MemberType::Property) continue;
    const auto location = stepped.CodeLocation();
    if (mLocations.contains(location)) continue;
    mProgress.Advance(*mRecord.oComponent, member);
    if (type == MemberType::Method) {
      LoadMethod(member, location);
    } else {
      LoadProperty(member, ProcKind::Let);
      LoadProperty(member, ProcKind::Set);
      LoadProperty(member, ProcKind::Get);
    }
  }
}

void ComponentLoader::LoadDeclarations() {
  Guard(Named(u"LoadDeclarations"), [&](GuardScope& scope) {
    ProcedureRecord record{.hComponent = mComponent, .nKind = ProcKind::Declarations};
    ReadProcedure(scope, record, {});
    ExpertFacts::Suggest(mModel, mOptions.Template().Set(), record);
    AddProcedure(record);
    mRecord.hDeclarations = mModel.LastProcedure();
  });
}

void ComponentLoader::LoadMethod(Member& member, std::int32_t location) {
  Guard(Named(u"LoadMethod"), [&](GuardScope& scope) {
    ProcedureRecord record{.hComponent = mComponent, .oMember = &member};
    const Text name = mModel.NameOf(scope, record);
    const SteppedModule module(scope, *mModule);
    const auto body = module.ProcBodyLine(name, record.nKind);
    // An external function is a method too; its place is given as line 1, whatever stands there.
    if (body <= mDeclarationLines || body < location) return;
    const Text type = HeadType(module, body);
    if (type.empty()) return;
    ReadProcedure(scope, record, type);
    if (mRecord.lFirstEventSource != -1 && type == u"Sub") {
      const Text event = EventHandlerType(name);
      record.bEventHandler = !event.empty();
      if (record.bEventHandler) record.sProcType = mModel.KeptTypeName(event);
    }
    record.bHandlerNoCase = type == u"Sub" && !record.bEventHandler && FitsSourceNoCase(name);
    ExpertFacts::Suggest(mModel, mOptions.Template().Set(), record);
    AddProcedure(record);
  });
}

void ComponentLoader::LoadProperty(Member& member, ProcKind kind) {
  Guard(Named(u"LoadProperty"), [&](GuardScope& scope) {
    ProcedureRecord record{.hComponent = mComponent, .nKind = kind, .oMember = &member};
    if (!SteppedMember(scope, member).MayHave(kind)) return;
    const auto body = BodyLineIfThere(*mModule, mModel.NameOf(scope, record), kind);
    if (body < 2) return;
    const SteppedModule module(scope, *mModule);
    const Text type = HeadType(module, body);
    if (type.empty()) return;
    record.headScope = HeadScope(module, body);
    ReadProcedure(scope, record, type);
    ExpertFacts::Suggest(mModel, mOptions.Template().Set(), record);
    AddProcedure(record);
  });
}

void ComponentLoader::ReadProcedure(GuardScope& scope, ProcedureRecord& record, TextView type) {
  record.sProcType = record.sDeclType = mModel.KeptTypeName(type);
  const ProcedureCode code = mModel.CodeOf(scope, record);
  mOptions.Template().ExtractProcSettings(code.text, record.oCurrent);
  record.bReadsErr =
      record.oMember && record.oCurrent.sTemplate().empty() && ReadsErr(code.text, code.headLine);
  mModel.InheritFromModule(record, record.oCurrent);
  record.oPending.CopyFrom(record.oCurrent);
}

void ComponentLoader::AddProcedure(const ProcedureRecord& record) {
  if (record.oMember) mLocations.insert(SteppedMember(mScope, *record.oMember).CodeLocation());
  mModel.AddProcedure(record);
}

Text ComponentLoader::EventHandlerType(TextView name) {
  return Result(u"EventHandlerType", [&](GuardScope&) -> Text {
    if (mSources.empty()) {
      std::int32_t place = 0;
      for (const TextView source : mModel.EventSourcesOf(mRecord)) {
        mSources.emplace(source, ++place);
      }
    }
    // Of all sources whose name and "_" begin the handler's name and leave something, the first
    // in the list counts: one look-up for each underscore instead of one test for each source.
    TextView event;
    std::int32_t first = 0;
    for (auto i = name.find(u'_'); i != TextView::npos; i = name.find(u'_', i + 1)) {
      const auto found = mSources.find(name.substr(0, i));
      if (found == mSources.end() || i + 1 == name.size()) continue;
      if (first != 0 && first < found->second) continue;
      first = found->second;
      event = name.substr(i + 1);
    }
    return Text(name == TerminateMethod ? TextView(u"Terminate") : event);
  });
}

bool ComponentLoader::FitsSourceNoCase(TextView name) {
  if (mLowerSources.empty()) {
    for (const TextView source : mModel.EventSourcesOf(mRecord))
      mLowerSources.insert(LowerCase(source));
  }
  if (EqualNoCase(name, TerminateMethod)) return name != TerminateMethod;
  const Text lower = LowerCase(name);
  for (auto i = lower.find(u'_'); i != Text::npos; i = lower.find(u'_', i + 1)) {
    if (i + 1 < lower.size() && mLowerSources.contains(lower.substr(0, i))) return true;
  }
  return false;
}
