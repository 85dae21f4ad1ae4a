// Code, members and controls of one component, over its document. They hold no text and no lines
// of their own, so that every component that names a file shows the document's present state.
#pragma once

#include <memory>
#include <vector>

#include "CodeModule.h"
#include "SourceDocument.h"
#include "VBE.h"
#include "VBProject.h"

class HostMembers;

/// A member is its name and type. Where it stands among the others is kept as well, but only as
/// the place to look first: declarations that come and go above move everything behind them.
class HostMember : public Member {
 public:
  HostMember(HostMembers& oParent, SourceDocument& oDocument, std::int32_t lIndex);
  Text Name() const override { return Text(KeptName()); }
  MemberType Type() const override { return mnType; }
  MemberScope Scope() const override { return moDocument.MemberAt(Place()).nScope; }
  std::int32_t CodeLocation() const override { return moDocument.MemberAt(Place()).lLine; }
  ::Members& Parent() const override;
  bool MayHave(ProcKind kind) const override { return moDocument.HasProcedure(KeptName(), kind); }
  /// The document finds a place for the hidden lines of lines that go (EditMemory).
  bool KeepsAttributes() const override { return true; }
  AttributeValue Attribute(MemberAttribute eAttribute) const override {
    return moDocument.Attribute(Place(), eAttribute);
  }
  void SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) override {
    moDocument.SetAttribute(Place(), eAttribute, oValue);
  }

  bool IsAt(std::int32_t lIndex) const;
  /// The present index in the document; 0 when the member is gone.
  std::int32_t FindPlace() const;

 private:
  /// Failure 35 when the member is gone.
  std::int32_t Place() const;
  TextView KeptName() const;

  HostMembers& moParent;
  SourceDocument& moDocument;
  std::uint32_t mNameAt, mNameLength;  // among the names that the parent keeps
  MemberType mnType;
  mutable std::int32_t mlIndex;
  mutable std::uint32_t mlVersion = 0;  // of the members among which it was found at mlIndex
};

class HostMembers : public ::Members {
 public:
  HostMembers(CodeModule& oParent, SourceDocument& oDocument)
      : moParent(oParent), moDocument(oDocument) {}
  std::int32_t Count() const override { return moDocument.MemberCount(); }
  Member& Item(std::int32_t lIndex) override;
  CodeModule& Parent() const override { return moParent; }

 private:
  friend class HostMember;
  void Rearrange();

  CodeModule& moParent;
  SourceDocument& moDocument;
  Text mNames;  // of all members that were made, one behind the other
  std::vector<std::unique_ptr<HostMember>> moItems;  // made when first asked for
  std::vector<std::unique_ptr<HostMember>> moGone;   // someone may still hold them
};

class HostCodeModule : public CodeModule {
 public:
  HostCodeModule(VBComponent& oParent, SourceDocument& oDocument)
      : moParent(oParent), moDocument(oDocument), moMembers(*this, oDocument) {}
  Text Lines(std::int32_t lStart, std::int32_t lCount) const override {
    return moDocument.Lines(lStart, lCount);
  }
  std::int32_t CountOfLines() const override { return moDocument.CountOfLines(); }
  std::int32_t CountOfDeclarationLines() const override {
    return moDocument.CountOfDeclarationLines();
  }
  std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const override {
    return moDocument.ProcStartLine(sName, nKind);
  }
  std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const override {
    return moDocument.ProcBodyLine(sName, nKind);
  }
  std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const override {
    return moDocument.ProcCountLines(sName, nKind);
  }
  void DeleteLines(std::int32_t lStart, std::int32_t lCount) override {
    moDocument.DeleteLines(lStart, lCount);
  }
  void InsertLines(std::int32_t lLine, TextView sText) override {
    moDocument.InsertLines(lLine, sText);
  }
  ::Members& Members() override { return moMembers; }
  const SourceDocument& Document() const { return moDocument; }
  VBComponent& Parent() const override { return moParent; }

 private:
  VBComponent& moParent;
  SourceDocument& moDocument;
  HostMembers moMembers;
};

/// The blocks below the root of a designer header, one control each.
class HostVBControls : public VBControls {
 public:
  explicit HostVBControls(const SourceDocument& oDocument) : moDocument(oDocument) {}
  std::int32_t Count() const override;
  Text ItemName(std::int32_t lIndex) const override;

 private:
  const SourceDocument& moDocument;
};

class HostCodePane : public CodePane {
 public:
  explicit HostCodePane(::CodeModule& oModule) : moModule(oModule) {}
  ::CodeModule& CodeModule() override { return moModule; }

 private:
  ::CodeModule& moModule;
};
