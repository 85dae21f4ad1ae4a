// An IDE in memory over plain module texts. It records what it was asked, and each operation can
// be made to fail. Two components may share one text.
//
//   FakeIDE oIDE;
//   auto& oMain = oIDE.Add(u"MMain", ComponentType::StdModule, u"Sub Run()\nEnd Sub");
//   oIDE.oLog.Fail("InsertLines");  // the next call
//   oHandler.LoadProjects(oIDE);
//   EXPECT_EQ(oMain.Code(), u"Sub Run()\nEnd Sub");
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Failure.h"
#include "HostCodeModule.h"

/// Faults to come, and the account of all calls by name.
class FakeLog {
 public:
  enum class Half { None, Done };
  /// The nCall-th call from now (0: every call) fails with 70; with Half::Done a writing call has
  /// done a part of its work by then.
  void Fail(const std::string& sOperation, int nCall = 1, Half eHalf = Half::None);
  /// Counts the call and fails it when it is its turn. True: the caller does half and fails.
  bool Ask(const std::string& sOperation);
  int Count(const std::string& sOperation) { return moCounts[sOperation]; }

 private:
  std::map<std::string, int> moCounts;
  std::map<std::string, std::pair<int, Half>> moFaults;
};

class FakeMember : public HostMember {
 public:
  FakeMember(HostMembers& oParent, SourceDocument& oDocument, std::int32_t lIndex, FakeLog& oLog)
      : HostMember(oParent, oDocument, lIndex), moLog(oLog) {}
  bool MayHave(ProcKind) const override { return true; }
  bool KeepsAttributes() const override { return false; }
  AttributeValue Attribute(MemberAttribute e) const override {
    return moLog.Ask("Attribute"), HostMember::Attribute(e);
  }
  void SetAttribute(MemberAttribute e, const AttributeValue& oValue) override {
    moLog.Ask("SetAttribute"), HostMember::SetAttribute(e, oValue);
  }

 private:
  FakeLog& moLog;
};

class FakeMembers : public HostMembers {
 public:
  FakeMembers(CodeModule& oParent, SourceDocument& oDocument, FakeLog& oLog);
  Member& Item(std::int32_t lIndex) override;

 private:
  std::deque<FakeMember> moItems;
};

class FakeModule : public HostCodeModule {
 public:
  FakeModule(VBComponent& oParent, SourceDocument& oDocument, FakeLog& oLog)
      : HostCodeModule(oParent, oDocument), moMembers(*this, oDocument, oLog), moLog(oLog) {}
  Text Lines(std::int32_t lStart, std::int32_t lCount) const override {
    return moLog.Ask("Lines"), HostCodeModule::Lines(lStart, lCount);
  }
  std::int32_t CountOfLines() const override {
    return moLog.Ask("CountOfLines"), HostCodeModule::CountOfLines();
  }
  std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const override {
    return moLog.Ask("ProcStartLine"), HostCodeModule::ProcStartLine(sName, nKind);
  }
  std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const override {
    return moLog.Ask("ProcBodyLine"), HostCodeModule::ProcBodyLine(sName, nKind);
  }
  std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const override {
    return moLog.Ask("ProcCountLines"), HostCodeModule::ProcCountLines(sName, nKind);
  }
  void DeleteLines(std::int32_t lStart, std::int32_t lCount) override;
  void InsertLines(std::int32_t lLine, TextView sText) override;
  ::Members& Members() override { return moMembers; }

 private:
  FakeMembers moMembers;
  FakeLog& moLog;
};

class FakeComponent : public VBComponent, public VBControls {
 public:
  FakeComponent(VBProject& oProject, FakeLog& oLog, Text sTheName, ComponentType nTheType,
                std::shared_ptr<SourceDocument> pTheDocument);
  Text Name() const override { return sName; }
  ComponentType Type() const override { return nType; }
  std::int32_t FileCount() const override { return static_cast<std::int32_t>(asFile.size()); }
  Text FileNames(std::int32_t i) const override {
    return asFile.at(static_cast<std::size_t>(i) - 1);
  }
  ::CodeModule* CodeModule() override {
    return moLog.Ask("CodeModule of " + ToUtf8(sName)), &moModule;
  }
  VBControls* DesignerControls() override { return moLog.Ask("DesignerControls"), this; }
  std::int32_t Property(TextView) override { return nInstancing; }
  Text DesignerID() const override { return sDesignerID; }
  VBProject& Parent() const override { return moProject; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(asControl.size()); }
  Text ItemName(std::int32_t lIndex) const override {
    return asControl.at(static_cast<std::size_t>(lIndex) - 1);
  }

  /// The whole code, lines joined by a line feed; SetCode changes it behind everybody's back.
  Text Code() const;
  void SetCode(TextView sCode);

  Text sName;
  ComponentType nType;
  std::int32_t nInstancing = 1;
  Text sDesignerID;
  std::vector<Text> asFile, asControl;
  std::shared_ptr<SourceDocument> pDocument;

 private:
  VBProject& moProject;
  FakeLog& moLog;
  FakeModule moModule;
};

class FakeProject : public VBProject, public ::VBComponents {
 public:
  FakeProject(Text sTheName, ProjectType nTheType)
      : sName(std::move(sTheName)), nType(nTheType), sFileName(sName + u".vbp") {}
  Text Name() const override { return sName; }
  Text FileName() const override { return sFileName; }
  ProjectType Type() const override { return nType; }
  ::VBComponents& VBComponents() override { return *this; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(oComponents.size()); }
  VBComponent& Item(std::int32_t i) override {
    return oComponents.at(static_cast<std::size_t>(i) - 1);
  }

  Text sName;
  ProjectType nType;
  Text sFileName;
  std::deque<FakeComponent> oComponents;
};

class FakeIDE : public VBE, public ::VBProjects {
 public:
  FakeProject& AddProject(Text sName, ProjectType nType = ProjectType::StandardExe);
  /// Adds to the last project, which is made when there is none. sCode: lines joined by "\n".
  FakeComponent& Add(Text sName, ComponentType nType, TextView sCode);
  /// A second component over the text of the first.
  FakeComponent& AddShared(Text sName, const FakeComponent& oFirst);
  /// Component i, from 1, of the first project.
  FakeComponent& Component(std::size_t i) { return moProjects[0].oComponents[i - 1]; }

  ::VBProjects& VBProjects() override { return *this; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(moProjects.size()); }
  VBProject& Item(std::int32_t i) override {
    return moProjects.at(static_cast<std::size_t>(i) - 1);
  }
  // The model never asks for these.
  ::CommandBars& CommandBars() override { throw Failure(445); }
  ::Events& Events() override { throw Failure(445); }
  ::Addins& Addins() override { throw Failure(445); }
  CodePane* ActiveCodePane() override { return nullptr; }

  FakeLog oLog;

 private:
  std::deque<FakeProject> moProjects;
};
