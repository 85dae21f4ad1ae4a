#include "LineNumbers.h"

#include <deque>
#include <set>
#include <vector>

#include "Directive.h"
#include "Failure.h"
#include "LogicalLine.h"
#include "MQuillon.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

constexpr std::size_t FieldWidth = 4;

bool StartsWithBlanks(TextView line) {
  return line.size() >= FieldWidth && IsBlank(line.substr(0, FieldWidth));
}

bool BeginsWithDigit(TextView line) {
  return !line.empty() && line.front() >= u'0' && line.front() <= u'9';
}

/// True when the statement has a line number of its own that stays: indented, or written `10:`.
bool HasOwnNumber(TextView statement) {
  const std::size_t behind = statement.find_first_not_of(u"0123456789");
  if (behind == 0) return false;
  return behind == TextView::npos || statement[behind] == u' ' || statement[behind] == u':';
}

/// An #If that is not yet ended: whether a Select Case waits for its first Case ahead of it and
/// behind a branch.
struct Branches {
  bool openAhead, openBehind, hasElse;
};

/// The numbering of one body: what it needs to know of all lines first, then line by line.
class Numbering {
 public:
  Numbering(std::span<const TextView> lines, const MRules::Values& rules)
      : mLines(lines.begin(), lines.end()), mRules(rules) {}

  Text Run() {
    Measure();
    std::size_t units = 0;
    for (TextView line : mLines) units += line.size() + FieldWidth + CrLf.size();
    mResult.reserve(units);
    if (mRules.bLineNumSkipShort && mStatements < mRules.lLineNumSkipShortSize) {
      for (TextView line : mLines) mResult.append(line).append(CrLf);
      return std::move(mResult);
    }
    LogicalLines logical(mLines);
    while (logical.Next()) Number(logical);
    return std::move(mResult);
  }

 private:
  /// Clears old numbers, counts statements, and sees whether the margin has room.
  void Measure() {
    bool comment = false;  // the line ahead is a comment that goes on
    bool continued = false;
    for (TextView& line : mLines) {
      if (!continued && BeginsWithDigit(line)) line = Cleared(line);
      const bool inComment = continued && comment;
      const TextView code = inComment ? TextView() : RightTrim(MXStringVB::TrimVBComments(line));
      CheckMargin(code);
      continued = Continues(line);
      comment = inComment || CommentStart(line) < line.size();
      if (comment || !continued) CountStatement(code);  // a comment goes on without its statement
    }
  }

  /// The line with blanks in the place of its number. Few lines have one: only those are copied.
  TextView Cleared(TextView line) {
    Text& copy = mCleared.emplace_back(line);
    MXStringVB::RemoveVBLineNumber(copy);
    return copy;
  }

  void CheckMargin(TextView code) {
    bool alone = false;
    if (mShift || code.size() < FieldWidth || StartsWithBlanks(code)) return;
    mShift = !MXStringVB::IsVBLineLabel(code, alone);
  }

  void CountStatement(TextView code) {
    const Text statement = FoldCode(code);
    if (statement.empty()) return;
    if (!MXStringVB::IsVBProcDataDeclaration(statement)) ++mStatements;
  }

  void Number(const LogicalLines& logical) {
    const TextView statement = logical.Statement();
    const bool wanted = Wants(statement);  // asked for each statement: it may open a Select Case
    // A number that the user wrote as a label keeps its line; it is not given out twice.
    if (!wanted || HasOwnNumber(statement)) {
      WritePlain(logical, logical.First());
    } else {
      WriteNumbered(logical);
    }
  }

  bool Wants(TextView statement) {
    bool alone = false;
    if (statement.empty()) return false;
    const DirectiveKind directive = DirectiveOf(statement);
    FollowBranches(directive);
    if (directive > DirectiveKind::Other || MXStringVB::IsVBCompilerDirective(statement)) {
      return false;
    }
    if (MXStringVB::IsVBLineLabel(statement, alone) && alone) return false;
    if (MXStringVB::IsVBProcDataDeclaration(statement)) {
      return !mRules.bLineNumSkipData && WantsByMode(statement);
    }
    if (MXStringVB::IsVBSimpleEnd(statement)) {
      return !mRules.bLineNumSkipEnd && WantsByMode(statement);
    }
    if (mInSelect && MXStringVB::ClearsVBSelectContext(statement)) {
      // The first Case of a Select Case can't have a number; another Select Case may follow on it.
      mInSelect = MXStringVB::StartsVBSelectContext(statement);
      return false;
    }
    mInSelect = MXStringVB::StartsVBSelectContext(statement);
    return WantsByMode(statement);
  }

  /// Whichever branch is compiled, a Case that may be the first is taken for it.
  void FollowBranches(DirectiveKind directive) {
    if (directive == DirectiveKind::If) mBranches.push_back({mInSelect, false, false});
    if (mBranches.empty()) return;
    Branches& branches = mBranches.back();
    if (directive == DirectiveKind::Else || directive == DirectiveKind::ElseIf) {
      branches.openBehind |= mInSelect;
      branches.hasElse |= directive == DirectiveKind::Else;
      mInSelect = branches.openAhead;
    } else if (directive == DirectiveKind::EndIf) {
      mInSelect |= branches.openBehind || (branches.openAhead && !branches.hasElse);
      mBranches.pop_back();
    }
  }

  bool WantsByMode(TextView statement) {
    if (mRules.eLineNumWhat == MQuillon::LineNumWhat::LogicStatements)
      return MXStringVB::IsVBLogicStatement(statement);
    if (mRules.bLineNumSkipEnd && MXStringVB::IsVBEndStatement(statement)) return false;
    if (mRules.eLineNumWhat != MQuillon::LineNumWhat::EveryNth) return true;
    if (++mCounter == 1) return true;
    if (mCounter >= mRules.lLineNumInterval) mCounter = 0;
    return false;
  }

  void WritePlain(const LogicalLines& logical, std::size_t first) {
    for (std::size_t i = first; i <= logical.Last(); ++i) {
      if (mShift) mResult.append(FieldWidth, u' ');
      mResult.append(mLines[i]).append(CrLf);
    }
  }

  void WriteNumbered(const LogicalLines& logical) {
    const TextView line = mLines[logical.First()];
    const TextView rest = !mShift && StartsWithBlanks(line) ? line.substr(FieldWidth) : line;
    const Text field = NextField();
    mResult.append(field);
    // A full field touches what follows; a number must stay a word of its own to be found again.
    if (field.size() >= FieldWidth && field.back() != u' ' && !rest.empty() &&
        rest.front() != u' ') {
      mResult.push_back(u' ');
    }
    mResult.append(rest).append(CrLf);
    WritePlain(logical, logical.First() + 1);
  }

  Text NextField() {
    do {
      ++mNumber;
    } while (Reserved().contains(mNumber));
    Text field = ToText(mNumber);
    if (field.size() > FieldWidth) {
      throw Failure(6, u"Line number " + field + u" does not fit its field of four digits",
                    u"LineNumbers");
    }
    field.resize(FieldWidth, u' ');
    return field;
  }

  const std::set<std::int64_t>& Reserved() {
    if (mReservedKnown) return mReserved;
    mReservedKnown = true;
    LogicalLines logical(mLines);
    while (logical.Next()) {
      const TextView statement = logical.Statement();
      if (!HasOwnNumber(statement)) continue;
      std::int64_t number = 0;
      for (char16_t unit : statement.substr(0, 9)) {
        if (unit < u'0' || unit > u'9') break;
        number = number * 10 + (unit - u'0');
      }
      mReserved.insert(number);
    }
    return mReserved;
  }

  std::vector<TextView> mLines;  ///< of the given text or of mCleared
  std::deque<Text> mCleared;     ///< which leaves its texts where they are as it grows
  const MRules::Values& mRules;
  Text mResult;
  std::int32_t mStatements = 0;
  std::int64_t mNumber = 0;
  std::int32_t mCounter = 0;
  bool mShift = false;
  bool mInSelect = false;
  std::vector<Branches> mBranches;
  bool mReservedKnown = false;
  std::set<std::int64_t> mReserved;
};

Text RemoveNumbers(std::span<const TextView> lines) {
  Text result;
  bool continued = false;
  for (TextView line : lines) {
    if (!continued && BeginsWithDigit(line)) {
      Text cleared(line);
      MXStringVB::RemoveVBLineNumber(cleared);
      result.append(cleared).append(CrLf);
    } else {
      result.append(line).append(CrLf);
    }
    continued = Continues(line);
  }
  return result;
}

}  // namespace

Text LineNumbers::DoLineNumbers(std::span<const TextView> asLine,
                                MQuillon::LineNumAction eLineNumAction,
                                const MRules::Values& rules) {
  if (eLineNumAction == MQuillon::LineNumAction::Remove) return RemoveNumbers(asLine);
  if (eLineNumAction == MQuillon::LineNumAction::Leave) {
    Text result;
    for (TextView line : asLine) result.append(line).append(CrLf);
    return result;
  }
  return Numbering(asLine, rules).Run();
}
