// The twelve attributes of a member over the hidden lines behind its declaration:
//
//   Attribute Total.VB_Description = "Sum of all ""open"" items"
//   Attribute Total.VB_ProcData.VB_Invoke_Property = "Page;Category"
//   Attribute Total.VB_UserMemId = 0
//   Attribute Total.VB_MemberFlags = "40"
//
// A variable's lines have VB_Var... names. Flags that no attribute stands for stay set.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "LineTable.h"
#include "ProcIndex.h"

/// A hidden line taken apart; the views point into it. Empty when it can't be.
struct AttributeLine {
  std::string_view sName;   ///< the member, without brackets
  std::string_view sKey;    ///< VB_Description, VB_ProcData.VB_Invoke_Property ...
  std::string_view sValue;  ///< trimmed
};
AttributeLine ReadAttributeLine(std::string_view sLine);

class MemberAttributes {
 public:
  MemberAttributes(LineTable& oLines, ProcIndex& oIndex, const CodePage& oPage)
      : moLines(oLines), moIndex(oIndex), moPage(oPage) {}

  /// lMember from 1. What has no line gives "", 0, or for StandardMethod a number above 0.
  AttributeValue Get(std::int32_t lMember, MemberAttribute eAttribute);
  /// Changes nothing when the value is there already. Failure 5 for text with a line break or
  /// with a character that the code page lacks.
  void Set(std::int32_t lMember, MemberAttribute eAttribute, const AttributeValue& oValue);

 private:
  /// The kinds of lines, in the order in which they stand behind a procedure.
  enum class Slot { Description, HelpId, Invoke, UserMemId, Flags };
  struct Carrier {
    std::int32_t lLine = 0;  // the visible line that the hidden ones stand behind
    ProcKind nKind = ProcKind::Method;
  };

  /// What the lines of one member say. Kept until lines change, since the twelve attributes of a
  /// member are asked for one behind the other.
  struct Found {
    std::int32_t lMember = 0;
    std::uint64_t lVersion = 0;
    SourceDocument::MemberInfo oMember;
    std::vector<Carrier> oCarriers;
    std::size_t lPreferred = 0;                  // the carrier of new lines
    std::array<std::optional<Text>, 5> asValue;  // by Slot
  };

  static Slot SlotOf(MemberAttribute eAttribute);
  static std::optional<Slot> SlotOf(std::string_view sKey);
  const Found& Look(std::int32_t lMember);
  bool IsMissing(std::int32_t lMember, MemberAttribute eAttribute, const AttributeValue& oValue);
  /// True when no hidden lines stand behind any declaration of the member.
  bool IsBare(std::int32_t lMember);
  void LookAtCarriers();
  void LookAtTail(const Carrier& oCarrier);
  static AttributeValue Missing(std::int32_t lMember, MemberAttribute eAttribute);
  const std::optional<Text>& ValueOf(std::int32_t lMember, Slot eSlot);
  bool Belongs(const AttributeLine& oLine) const;
  std::optional<Text> FileForm(std::int32_t lMember, MemberAttribute eAttribute,
                               const AttributeValue& oValue);
  std::optional<Text> InvokeForm(std::int32_t lMember, MemberAttribute eAttribute, TextView sText);
  void Write(Slot eSlot, const std::optional<Text>& sValue);
  bool Replace(const Carrier& oCarrier, Slot eSlot, std::string_view sValue);
  void Insert(const Carrier& oCarrier, Slot eSlot, std::string_view sValue);
  static std::string KeyOf(Slot eSlot, bool bVariable, ProcKind nKind);
  static int Rank(Slot eSlot, bool bVariable);
  void SetTail(std::int32_t lLine, const std::string& sTail);

  LineTable& moLines;
  ProcIndex& moIndex;
  const CodePage& moPage;
  Found moFound;
  struct {
    std::int32_t lMember = 0;
    std::uint64_t lVersion = 0;
    bool bBare = false;
  } moBare;  // the last answer of IsBare
};
