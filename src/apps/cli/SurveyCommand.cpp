// survey: the hand-written error handlers of a group by shape, and template learn, which makes a
// template of one. In order: gathering, what both forms of the result need, text, JSON, learning.
#include "SurveyCommand.h"

#include <algorithm>
#include <array>
#include <set>

#include "Commands.h"
#include "JsonWriter.h"
#include "LearnedTemplate.h"
#include "MQuillon.h"
#include "MRules.h"
#include "Survey.h"
#include "Table.h"
#include "TemplateCheck.h"
#include "VisibleText.h"

namespace {

/// The file that learned templates are checked in begins with these lines.
constexpr TextView CheckedHead =
    u"<#Template name=Signature type=signature>\r\n<#Start>\r\n'Quillon: "
    u"<%Signature>\r\n<#End>\r\n";
constexpr std::int32_t CheckedHeadLines = 4;

struct Surveyed {
  std::vector<Shape> shapes;
  std::size_t procedures = 0;     ///< with handlers of their own
  std::size_t notTakenApart = 0;  ///< of them, those whose head or end isn't found
};

void Take(Session& session, ProcedureHandle h, Survey& survey) {
  CIDEHandler& handler = session.oHandler;
  const ProcedureRecord& record = handler.Procedure(h);
  const ComponentRecord& component = handler.Component(record.hComponent);
  std::int32_t headLine = 1;
  const Text text = handler.GetProcCode(h, headLine);
  const Text name = handler.ProcName(h), project = handler.ProjectName(component.hProject);
  auto own = TakeHandlerApart(ProcText(text), {component.sName, name, record.sDeclType, project},
                              headLine);
  if (own) survey.Add(static_cast<std::size_t>(h.Number()), std::move(*own));
}

Surveyed Gather(Session& session) {
  session.OpenAnyTemplate();
  session.OpenGroup(Session::Use::Show);
  session.LoadScope();
  Survey survey;
  Surveyed result;
  std::size_t done = 0;
  std::set<std::pair<std::string, std::int32_t>> seen;  // places: file and line
  for (const ProcedureHandle h : session.Procedures()) {
    const ProcedureRecord& record = session.oHandler.Procedure(h);
    session.oConsole.Progress(++done, session.Procedures().size(),
                              session.oHandler.Component(record.hComponent).sName);
    if (record.oCurrent.sTemplate() != MQuillon::BespokeName) continue;
    // A file of several projects is one: its handlers were written once.
    if (!seen.insert({session.FileOf(record.hComponent), session.LineOf(h, 0)}).second) continue;
    ++result.procedures;
    Take(session, h, survey);
  }
  session.oConsole.ProgressEnd();
  result.notTakenApart = result.procedures - survey.Count();
  result.shapes = survey.Finish();
  return result;
}

/// The shape that --shape names, from 1.
std::size_t ShapeNumber(const std::string& word, std::size_t count) {
  if (count == 0) throw Stop{"No procedure handles errors on its own: there is no shape"};
  const bool isNumber =
      !word.empty() && word.size() < 9 && word.find_first_not_of("0123456789") == std::string::npos;
  const std::size_t number = isNumber ? std::stoul(word) : 0;
  if (number >= 1 && number <= count) return number;
  throw Stop{"--shape takes a number from 1 to " + std::to_string(count) +
             ", as survey lists them: " + word};
}

/// Which parts of a shape its members write in their own ways.
std::vector<std::string> Varying(const Shape& shape) {
  bool label = false, text = false;
  for (std::size_t i = 0; i < shape.rows.size(); ++i) {
    if (shape.forms[i].size() < 2) continue;
    const bool hasText = shape.rows[i].find(u'"') != Text::npos;
    label = label || (!hasText && shape.rows[i].find(u'<') != Text::npos);
    text = text || hasText;
  }
  std::vector<std::string> names;
  if (label) names.push_back("label");
  if (text) names.push_back("texts");
  if (shape.behindDeclarations > 0 && shape.behindDeclarations < shape.members.size())
    names.push_back("place");
  return names;
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

/// The rows in their most frequent forms, and the places of body and clean-up code among them.
std::vector<std::string> RowsOf(const Shape& shape) {
  std::vector<std::string> rows;
  for (std::size_t i = 0; i <= shape.rows.size(); ++i) {
    if (i == shape.above) rows.push_back("(body)");
    if (i > 0 && i == shape.cleanUp) rows.push_back("(clean-up)");
    if (i < shape.rows.size()) rows.push_back(ToUtf8(shape.forms[i].front().text));
  }
  return rows;
}

/// How many members each reason keeps from being adopted.
std::array<std::size_t, ObstacleCount> Reasons(const Shape& shape) {
  std::array<std::size_t, ObstacleCount> counts{};
  for (const Shape::Member& member : shape.members)
    if (member.obstacle) ++counts[static_cast<std::size_t>(member.obstacle->obstacle)];
  return counts;
}

class Results {
 public:
  Results(Session& session, const Surveyed& surveyed) : mSession(session), mSurveyed(surveyed) {}

 protected:
  ProcedureHandle HandleOf(const Shape::Member& member) const {
    return ProcedureHandle(static_cast<std::int32_t>(member.id));
  }
  std::string FileOf(ProcedureHandle h) const {
    return mSession.FileOf(mSession.oHandler.Procedure(h).hComponent);
  }
  std::int32_t LineOf(const Shape::Member& member) const {
    return mSession.LineOf(HandleOf(member), member.obstacle ? member.obstacle->line : 0);
  }
  /// The first member that a template can take the place of, else the first.
  const Shape::Member& Example(const Shape& shape) const {
    const auto found = std::find_if(shape.members.begin(), shape.members.end(),
                                    [](const Shape::Member& member) { return !member.obstacle; });
    return found == shape.members.end() ? shape.members.front() : *found;
  }
  std::int64_t Percent(const Shape& shape) const {
    return static_cast<std::int64_t>((shape.members.size() * 100 + mSurveyed.procedures / 2) /
                                     mSurveyed.procedures);
  }
  /// Calls use(number, difference) for each other shape that differs in a single row.
  template <class Use>
  void EachNear(const Shape& shape, Use&& use) const {
    for (std::size_t i = 0; i < mSurveyed.shapes.size(); ++i) {
      if (&mSurveyed.shapes[i] == &shape) continue;
      if (const auto apart = OneRowApart(shape, mSurveyed.shapes[i])) use(i + 1, *apart);
    }
  }

  Session& mSession;
  const Surveyed& mSurveyed;
};

class TextResults : public Results {
 public:
  using Results::Results;

  void All() {
    TextTable table(Cells().size());
    const auto each = [&](auto&& use) {
      Cells cells = {"Shape", "Procedures", "Share", "Adoptable", "Varies", "Example", "Rows"};
      use(cells);
      for (std::size_t i = 0; i < mSurveyed.shapes.size(); ++i) {
        cells = CellsOf(i + 1);
        use(cells);
      }
    };
    each([&](const Cells& cells) { table.Measure(cells); });
    each([&](const Cells& cells) {
      table.Append(cells, mSession.oOutput.Buffer());
      mSession.oOutput.FlushWhenLarge();
    });
  }

  void One(std::size_t number) {
    const Shape& shape = mSurveyed.shapes[number - 1];
    Put("Shape " + std::to_string(number) + ": " + std::to_string(shape.members.size()) +
        " procedures, " + std::to_string(shape.Adoptable()) + " adoptable");
    for (const std::string& row : RowsOf(shape)) Put("    " + row);
    Forms(shape);
    Obstacles(shape);
    EachNear(shape, [&](std::size_t other, const RowDifference& apart) {
      Put("Near: shape " + std::to_string(other) + " has " + Shown(apart.other) + " for " +
          Shown(apart.mine));
    });
    for (const Shape::Member& member : shape.members) {
      const ProcedureHandle h = HandleOf(member);
      Put(Placed(FileOf(h), LineOf(member),
                 mSession.NameOf(h) +
                     (member.obstacle ? ": " + ToUtf8(TextOf(member.obstacle->obstacle)) : "")));
    }
  }

 private:
  using Cells = std::array<std::string, 7>;

  void Put(const std::string& line) { mSession.oOutput.Put(VisibleText(line) + "\n"); }
  static std::string Shortened(const std::string& rows) {
    constexpr std::size_t Most = 120;
    const Text text = FromUtf8(rows);
    return text.size() <= Most ? rows : ToUtf8(text.substr(0, Most)) + "...";
  }
  static std::string Shown(const Text& row) {
    return row.empty() ? "no row" : '[' + ToUtf8(row) + ']';
  }

  Cells CellsOf(std::size_t number) const {
    const Shape& shape = mSurveyed.shapes[number - 1];
    const Shape::Member& example = Example(shape);
    const ProcedureHandle h = HandleOf(example);
    Cells cells = {std::to_string(number),
                   std::to_string(shape.members.size()),
                   std::to_string(Percent(shape)) + '%',
                   std::to_string(shape.Adoptable()),
                   Joined(Varying(shape), ", "),
                   Placed(FileOf(h), mSession.HeadLine(h), mSession.NameOf(h)),
                   Shortened(Joined(RowsOf(shape), " | "))};
    for (std::string& cell : cells) cell = VisibleText(cell);
    return cells;
  }

  void Forms(const Shape& shape) {
    for (std::size_t i = 0; i < shape.rows.size(); ++i) {
      if (shape.forms[i].size() < 2) continue;
      Put("Varies: " + ToUtf8(shape.rows[i]));
      for (const RowForm& form : shape.forms[i])
        Put("    " + std::to_string(form.members.size()) + "  " + ToUtf8(form.text));
    }
    if (shape.behindDeclarations > 0)
      Put("On Error stands behind declarations in " + std::to_string(shape.behindDeclarations));
  }

  void Obstacles(const Shape& shape) {
    const auto counts = Reasons(shape);
    for (std::size_t i = 0; i < counts.size(); ++i)
      if (counts[i] > 0)
        Put("Not adoptable: " + std::to_string(counts[i]) + ", " +
            ToUtf8(TextOf(static_cast<Obstacle>(i))));
  }
};

class JsonResults : public Results {
 public:
  JsonResults(Session& session, const Surveyed& surveyed)
      : Results(session, surveyed), mJson(session.oOutput) {}

  /// number: the one shape that is told in full; 0: all, in short.
  void Put(std::size_t number) {
    mJson.BeginObject();
    mJson.Key("procedures").Number(static_cast<std::int64_t>(mSurveyed.procedures));
    mJson.Key("notTakenApart").Number(static_cast<std::int64_t>(mSurveyed.notTakenApart));
    mJson.Key("shapes").BeginArray();
    for (std::size_t i = 1; i <= mSurveyed.shapes.size(); ++i)
      if (number == 0 || number == i) One(i, number != 0);
    mJson.Break();
    mJson.EndArray();
    mJson.EndObject();
    mJson.Finish();
  }

 private:
  void Strings(const char* key, const std::vector<std::string>& texts) {
    mJson.Key(key).BeginArray();
    for (const std::string& text : texts) mJson.String(text);
    mJson.EndArray();
  }

  void One(std::size_t number, bool inFull) {
    const Shape& shape = mSurveyed.shapes[number - 1];
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("shape").Number(static_cast<std::int64_t>(number));
    mJson.Key("procedures").Number(static_cast<std::int64_t>(shape.members.size()));
    mJson.Key("percent").Number(Percent(shape));
    mJson.Key("adoptable").Number(static_cast<std::int64_t>(shape.Adoptable()));
    mJson.Key("behindDeclarations").Number(static_cast<std::int64_t>(shape.behindDeclarations));
    mJson.Key("example");
    Member(Example(shape));
    Strings("varies", Varying(shape));
    Strings("rows", RowsOf(shape));
    mJson.Key("obstacles").BeginObject();
    const auto counts = Reasons(shape);
    for (std::size_t i = 0; i < counts.size(); ++i)
      if (counts[i] > 0)
        mJson.Key(ToUtf8(TextOf(static_cast<Obstacle>(i))))
            .Number(static_cast<std::int64_t>(counts[i]));
    mJson.EndObject();
    if (inFull) Details(shape);
    mJson.EndObject();
  }

  void Details(const Shape& shape) {
    mJson.Key("near").BeginArray();
    EachNear(shape, [&](std::size_t other, const RowDifference& apart) {
      mJson.BeginObject();
      mJson.Key("shape").Number(static_cast<std::int64_t>(other));
      mJson.Key("row").StringOrNull(ToUtf8(apart.mine));
      mJson.Key("otherRow").StringOrNull(ToUtf8(apart.other));
      mJson.EndObject();
    });
    mJson.EndArray();
    mJson.Key("members").BeginArray();
    for (const Shape::Member& member : shape.members) {
      mJson.Break();
      Member(member);
    }
    mJson.Break();
    mJson.EndArray();
  }

  void Member(const Shape::Member& member) {
    const ProcedureHandle h = HandleOf(member);
    mJson.BeginObject();
    mJson.Key("file").String(FileOf(h));
    mJson.Key("line").Number(LineOf(member));
    mJson.Key("procedure").String(mSession.NameOf(h));
    mJson.Key("obstacle")
        .StringOrNull(member.obstacle ? ToUtf8(TextOf(member.obstacle->obstacle)) : std::string());
    mJson.EndObject();
  }

  JsonWriter mJson;
};

/// What a check of a file with the template alone finds; lines count from the template's first.
std::vector<TemplateFinding> FindingsIn(const LearnedTemplate& learned) {
  CTemplate engine(MRules::oRules);
  Text text(CheckedHead);
  for (const Text& line : learned.lines) text.append(line).append(CrLf);
  std::vector<TemplateFinding> findings;
  const auto link = engine.ReportError.Connect([&](TextView message) {
    if (message.starts_with(u"    ")) findings.push_back({0, Text(Trim(message))});
  });
  engine.LoadTemplateText(u"", text);
  if (engine.LoadErrors() == 0) findings = CheckTemplate(engine);
  for (TemplateFinding& finding : findings)
    finding.line -= std::min(finding.line, CheckedHeadLines);
  return findings;
}

}  // namespace

int SurveyCommand(Session& session) {
  const Surveyed surveyed = Gather(session);
  const std::string& shape = session.oArguments.sShape;
  const std::size_t number = shape.empty() ? 0 : ShapeNumber(shape, surveyed.shapes.size());
  if (session.oArguments.sFormat == "json") {
    JsonResults(session, surveyed).Put(number);
  } else if (number > 0) {
    TextResults(session, surveyed).One(number);
  } else {
    TextResults(session, surveyed).All();
  }
  session.oConsole.Say(std::to_string(surveyed.procedures) +
                       " procedures handle errors on their own, in " +
                       std::to_string(surveyed.shapes.size()) + " shapes");
  if (surveyed.notTakenApart > 0)
    session.oConsole.Error(std::to_string(surveyed.notTakenApart) +
                           " of them could not be taken apart: their head or end isn't found");
  return session.IsScopeRead() ? 0 : 2;
}

int LearnTemplateCommand(Session& session) {
  const Surveyed surveyed = Gather(session);
  const std::size_t number = ShapeNumber(session.oArguments.sShape, surveyed.shapes.size());
  const Shape& shape = surveyed.shapes[number - 1];
  const std::string& name = session.oArguments.sName;
  const LearnedTemplate learned =
      LearnTemplate(shape, FromUtf8(name.empty() ? "Shape" + std::to_string(number) : name));
  for (const Text& line : learned.lines) session.oOutput.Put(ToUtf8(line) + "\r\n");
  for (const LearnedTemplate::Other& other : learned.others) {
    const Shape::Member& member = shape.members[other.member];
    const ProcedureHandle h(static_cast<std::int32_t>(member.id));
    const std::string file = session.FileOf(session.oHandler.Procedure(h).hComponent);
    session.oConsole.Error(VisibleText(Placed(
        file, session.HeadLine(h),
        session.NameOf(h) + ": [" + ToUtf8(other.text) + "] is not [" + ToUtf8(other.row) + ']')));
  }
  const std::vector<TemplateFinding> findings = FindingsIn(learned);
  for (const TemplateFinding& finding : findings)
    session.oConsole.Error(
        VisibleText(Placed("(template)", finding.line, ToUtf8(finding.message))));
  return findings.empty() ? 0 : 1;
}
