// An IDE in memory over plain module texts. It records what it was asked, and each operation can
// be made to fail. Its scan knows one declaration to a line and no more: a procedure's lines begin
// behind the End line of the one before.
//
//   FakeIDE oIDE;
//   auto& oModule = oIDE.Add(u"MMain", ComponentStdModule, u"Sub Run()\nEnd Sub");
//   oIDE.oLog.Fail("InsertLines");  // the next call
//   oHandler.LoadProjects(oIDE);
//   EXPECT_EQ(oModule.Code(), u"Sub Run()\nEnd Sub");
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Failure.h"
#include "VBE.h"

/// Faults to come and the account of all calls, as "InsertLines 3".
class FakeLog {
 public:
  enum class Half { None, Done };
  /// The nCall-th call from now (0: every call) fails; with Half::Done a writing call has done a
  /// part of its work by then.
  void Fail(const std::string& sOperation, int nCall = 1, std::int32_t lNumber = 70,
            Half eHalf = Half::None);
  void Heal() { moFaults.clear(); }
  /// Records and fails, if it is the turn. True: fail half done, by the caller.
  bool Ask(const std::string& sOperation, const std::string& sDetail = {});
  /// Number of calls whose record begins with sStart.
  int Count(const std::string& sStart) const;

  std::vector<std::string> asAsked;

 private:
  struct Fault {
    int nCall;
    std::int32_t lNumber;
    Half eHalf;
  };
  std::map<std::string, Fault> moFaults;
};

/// The lines of one file; two components may share it.
struct FakeSource {
  struct Proc {
    Text sName;
    std::int32_t nKind, lStart, lBody, lEnd;  ///< lEnd: last line that counts to it
  };
  std::vector<Text> asLine;
  std::vector<Proc> Procs() const;
  Proc Find(TextView sName, std::int32_t nKind) const;
};

class FakeModule;

class FakeMember : public Member {
 public:
  FakeMember(FakeModule& oModule, Text sName, std::int32_t nType, std::int32_t nScope)
      : moModule(oModule), msName(std::move(sName)), mnType(nType), mnScope(nScope) {}
  Text Name() const override { return msName; }
  std::int32_t Type() const override { return mnType; }
  std::int32_t Scope() const override { return mnScope; }
  std::int32_t CodeLocation() const override;
  Members& Parent() const override;
  AttributeValue Attribute(MemberAttribute eAttribute) const override;
  void SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) override;

  std::map<MemberAttribute, AttributeValue> oAttributes;  ///< a missing one can't be read

 private:
  FakeModule& moModule;
  Text msName;
  std::int32_t mnType, mnScope;
};

class FakeMembers : public Members {
 public:
  explicit FakeMembers(FakeModule& oModule) : moModule(oModule) {}
  std::int32_t Count() const override { return static_cast<std::int32_t>(oItems.size()); }
  Member& Item(std::int32_t lIndex) override;
  CodeModule& Parent() const override;

  std::deque<FakeMember> oItems;

 private:
  FakeModule& moModule;
};

/// One component with its module, controls and files.
class FakeModule : public CodeModule, public VBControls {
 public:
  FakeModule(VBComponent& oOwner, FakeLog& oLog, std::shared_ptr<FakeSource> pSource);
  Text Lines(std::int32_t lStart, std::int32_t lCount) const override;
  std::int32_t CountOfLines() const override;
  std::int32_t CountOfDeclarationLines() const override;
  std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const override;
  std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const override;
  std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const override;
  void DeleteLines(std::int32_t lStart, std::int32_t lCount) override;
  void InsertLines(std::int32_t lLine, TextView sText) override;
  ::Members& Members() override;
  VBComponent& Parent() const override { return moOwner; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(asControl.size()); }
  Text ItemName(std::int32_t lIndex) const override;

  FakeMember& MemberOf(TextView sName);

  FakeLog& oLog;
  std::shared_ptr<FakeSource> pSource;
  std::vector<Text> asControl;

 private:
  void AddMember(Text sName, std::int32_t nType, std::int32_t nScope);
  VBComponent& moOwner;
  FakeMembers moMembers;
};

class FakeComponent : public VBComponent {
 public:
  FakeComponent(VBProject& oProject, FakeLog& oLog, Text sTheName, std::int32_t nTheType,
                std::shared_ptr<FakeSource> pSource)
      : sName(std::move(sTheName)),
        nType(nTheType),
        oModule(*this, oLog, std::move(pSource)),
        moProject(oProject) {}
  Text Name() const override { return sName; }
  std::int32_t Type() const override { return nType; }
  std::int32_t FileCount() const override { return static_cast<std::int32_t>(asFile.size()); }
  Text FileNames(std::int32_t nIndex) const override;
  ::CodeModule* CodeModule() override;
  VBControls* DesignerControls() override;
  std::int32_t Property(TextView) override { return nInstancing; }
  Text DesignerID() const override { return sDesignerID; }
  VBProject& Parent() const override { return moProject; }

  /// The whole code, lines joined by a line feed; SetCode changes it behind everybody's back.
  Text Code() const;
  void SetCode(TextView sCode);

  Text sName;
  std::int32_t nType;
  std::int32_t nInstancing = 1;
  Text sDesignerID;
  std::vector<Text> asFile;
  FakeModule oModule;

 private:
  VBProject& moProject;
};

class FakeProject : public VBProject, public ::VBComponents {
 public:
  FakeProject(Text sTheName, std::int32_t nTheType) : sName(std::move(sTheName)), nType(nTheType) {}
  Text Name() const override { return sName; }
  Text FileName() const override { return sName + u".vbp"; }
  std::int32_t Type() const override { return nType; }
  ::VBComponents& VBComponents() override { return *this; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(oComponents.size()); }
  VBComponent& Item(std::int32_t lIndex) override;

  Text sName;
  std::int32_t nType;
  std::deque<FakeComponent> oComponents;
};

class FakeIDE : public VBE, public ::VBProjects {
 public:
  FakeProject& AddProject(Text sName, std::int32_t nType);
  /// Adds to the last project, which is made when there is none. sCode: lines joined by "\n".
  FakeComponent& Add(Text sName, std::int32_t nType, TextView sCode);
  /// A second component over the file of the first.
  FakeComponent& AddShared(Text sName, FakeComponent& oFirst);

  /// Component i, from 1, of the first project.
  FakeComponent& Component(std::size_t i) { return moProjects[0].oComponents[i - 1]; }

  ::VBProjects& VBProjects() override { return *this; }
  std::int32_t Count() const override { return static_cast<std::int32_t>(moProjects.size()); }
  VBProject& Item(std::int32_t lIndex) override;
  // The model never asks for these: Failure 445.
  ::CommandBars& CommandBars() override { throw Failure(445); }
  ::Events& Events() override { throw Failure(445); }
  ::Addins& Addins() override { throw Failure(445); }
  CodePane* ActiveCodePane() override { return nullptr; }

  FakeLog oLog;

 private:
  std::deque<FakeProject> moProjects;
};
