// In order: the lines of code, the frame among them, what stands in the way.
#include "OwnHandler.h"

#include <algorithm>
#include <span>

#include "FrameText.h"
#include "LogicalLine.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcPlaces.h"

namespace {

constexpr TextView OnErrorGoTo = u"on error goto ";

/// A logical line that holds code.
struct CodeLine {
  std::size_t number;  ///< of its first line, from 1
  Text source;         ///< on one line, without comment and line number
  Text statement;      ///< the same folded, without texts
};

TextView WithoutNumber(TextView line) {
  const std::size_t behind = line.find_first_not_of(u"0123456789");
  return Trim(line.substr(std::min(behind, line.size())));
}

std::vector<CodeLine> CodeLines(const ProcText& code, std::size_t first, std::size_t end) {
  std::vector<TextView> lines;
  for (std::size_t i = first; i < end; ++i) lines.push_back(code.Line(i));
  std::vector<CodeLine> result;
  LogicalLines logical(lines);
  while (logical.Next()) {
    Text folded;
    MXString::FoldLine(logical.Statement(), folded);
    const TextView statement = WithoutNumber(folded);
    if (statement.empty() || CommentStart(statement) == 0) continue;
    Text source;
    for (std::size_t i = logical.First(); i <= logical.Last(); ++i) {
      TextView line = TrimWhite(lines[i]);
      if (i < logical.Last()) line.remove_suffix(1);
      source.append(line);
    }
    source = WithoutNumber(TrimWhite(MXStringVB::TrimVBComments(source)));
    result.push_back({first + logical.First() + 1, std::move(source), Text(statement)});
  }
  return result;
}

/// The label that a line consists of; empty for any other line.
TextView LabelOf(const CodeLine& line) {
  const TextView statement = line.statement;
  if (!statement.ends_with(u':') || statement.find_first_of(u" :(") != statement.size() - 1) {
    return {};
  }
  return statement.substr(0, statement.size() - 1);
}

bool LeavesBody(const CodeLine& line) {
  return line.statement.starts_with(u"exit sub") || line.statement.starts_with(u"exit function") ||
         line.statement.starts_with(u"exit property") || line.statement.starts_with(u"goto ");
}

/// What stands behind a word in a statement, up to a blank; empty when the word
/// isn't in it.
TextView WordBehind(TextView statement, TextView word) {
  for (std::size_t at = 0; (at = statement.find(word, at)) != TextView::npos; ++at) {
    if (at > 0 && statement[at - 1] != u' ') continue;
    const TextView rest = statement.substr(at + word.size());
    return rest.substr(0, std::min(rest.find_first_of(u" :"), rest.size()));
  }
  return {};
}

class HandlerReader {
 public:
  HandlerReader(std::vector<CodeLine> lines, const ProcedureName& name)
      : mLines(std::move(lines)), mName(name) {}

  std::optional<OwnHandler> Read() {
    const auto isOnError = [](const CodeLine& line) {
      return line.statement.find(u"on error ") != Text::npos;
    };
    mFirst = static_cast<std::size_t>(std::find_if(mLines.begin(), mLines.end(), isOnError) -
                                      mLines.begin());
    if (mFirst == mLines.size()) return std::nullopt;
    mTail = mCleanUp = mRest = mLines.size();
    ReadAhead();
    if (IsOwnLine() && mLines[mFirst].statement.starts_with(OnErrorGoTo)) FindTail();
    CheckBody();
    TakeRows();
    return std::move(mResult);
  }

 private:
  void Add(Obstacle obstacle, std::size_t line) {
    mResult.obstacles.push_back({obstacle, mLines[line].number});
  }

  bool IsOwnLine() {
    const Text& statement = mLines[mFirst].statement;
    if (statement.starts_with(u"on error ") && statement.find(u':') == Text::npos) return true;
    Add(Obstacle::SharedLine, mFirst);
    return false;
  }

  void ReadAhead() {
    mResult.behindCode = mFirst > 0;
    for (std::size_t i = 0; i < mFirst; ++i) {
      if (MXStringVB::IsVBProcDataDeclaration(mLines[i].statement)) continue;
      mResult.behindCode = false;
      return Add(Obstacle::CodeAhead, i);
    }
  }

  std::size_t LabelLine(TextView label, std::size_t from) const {
    for (std::size_t i = from; i < mLines.size(); ++i) {
      if (LabelOf(mLines[i]) == label) return i;
    }
    return mLines.size();
  }

  /// Where the rows behind the body begin, and where the clean-up code stands
  /// among them.
  void FindTail() {
    const TextView label = Trim(TextView(mLines[mFirst].statement).substr(OnErrorGoTo.size()));
    if (label == u"0") return;
    const std::size_t handler = LabelLine(label, mFirst + 1);
    if (handler == mLines.size()) return Add(Obstacle::NoLabel, mFirst);
    mLabels.emplace_back(label);
    mTail = handler > mFirst + 1 && LeavesBody(mLines[handler - 1]) ? handler - 1 : handler;
    for (std::size_t i = handler + 1; i < mLines.size(); ++i) {
      const TextView target = WordBehind(mLines[i].statement, u"resume ");
      if (target.empty() || target == u"next" || target == u"0") continue;
      if (target.front() >= u'0' && target.front() <= u'9') {
        Add(Obstacle::ResumeNumber, i);
      } else if (!FindWayOut(target, handler)) {
        continue;
      }
      break;
    }
  }

  /// The label at which the handler resumes opens the clean-up code; right behind On Error it is
  /// where the body begins anew, and false is given.
  bool FindWayOut(TextView label, std::size_t handler) {
    const std::size_t wayOut = LabelLine(label, mFirst + 1);
    if (wayOut == mLines.size()) return false;
    mLabels.emplace_back(label);
    if (wayOut == mFirst + 1) {
      mResult.above = 2;
      return false;
    }
    mCleanUp = wayOut + 1;
    while (mCleanUp < mLines.size() && mLines[mCleanUp].statement.starts_with(u"on error ")) {
      ++mCleanUp;
    }
    if (wayOut > handler) return true;
    mTail = wayOut;
    mRest = LeavesBody(mLines[handler - 1]) && handler > mCleanUp ? handler - 1 : handler;
    return true;
  }

  void CheckBody() {
    CheckStretch(mFirst + mResult.above, mTail);
    CheckStretch(mCleanUp, mRest);
  }

  void CheckStretch(std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      const TextView statement = mLines[i].statement;
      if (statement.find(u"on error ") != TextView::npos) Add(Obstacle::SecondOnError, i);
      for (const TextView word : {u"goto ", u"gosub ", u"resume "}) {
        const TextView target = WordBehind(statement, word);
        if (std::find(mLabels.begin(), mLabels.end(), target) != mLabels.end()) {
          Add(Obstacle::JumpToLabel, i);
        }
      }
    }
  }

  void TakeRows() {
    const FrameText frame(mName, mLabels);
    const auto take = [&](std::size_t from, std::size_t to) {
      for (std::size_t i = from; i < to; ++i) {
        if (mLines[i].statement.starts_with(u'#')) Add(Obstacle::Unbalanced, i);
        mResult.rows.push_back(frame.RowOf(mLines[i].source));
      }
    };
    take(mFirst, mFirst + mResult.above);
    take(mTail, mCleanUp);
    if (mCleanUp < mLines.size() || mRest < mLines.size()) mResult.cleanUp = mResult.rows.size();
    take(mRest, mLines.size());
  }

  const std::vector<CodeLine> mLines;
  const ProcedureName& mName;
  std::vector<Text> mLabels;
  /// Indices: of On Error, of the first line behind the body, of the first one
  /// of the clean-up code and of the first one behind that.
  std::size_t mFirst = 0, mTail = 0, mCleanUp = 0, mRest = 0;
  OwnHandler mResult;
};

}  // namespace

TextView TextOf(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::SharedLine:
      return u"On Error shares its line";
    case Obstacle::CodeAhead:
      return u"code stands ahead of On Error";
    case Obstacle::SecondOnError:
      return u"more than one On Error";
    case Obstacle::NoLabel:
      return u"the label of On Error isn't there";
    case Obstacle::JumpToLabel:
      return u"another jump names the label";
    case Obstacle::ResumeNumber:
      return u"Resume names a line number";
    case Obstacle::Unbalanced:
      return u"conditional compilation stands among its lines";
  }
  return {};
}

std::optional<OwnHandler> TakeHandlerApart(const ProcText& code, const ProcedureName& name,
                                           std::int32_t headLine) {
  const ProcPlaces places = FindPlaces(code, headLine, BaseType(name.type));
  if (places.refusal) return std::nullopt;
  return HandlerReader(CodeLines(code, places.firstBody, places.end), name).Read();
}
