// text OP: the engine's bare operations on procedure texts, one JSON object per line in and out.
// Answers leave as soon as no further request is waiting, so that an editor can hold a
// conversation and a script can send millions.
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Commands.h"
#include "Failure.h"
#include "LineNumbers.h"
#include "MQuillon.h"
#include "TextRequest.h"

namespace {

using rapidjson::Document;
using rapidjson::Value;

/// Lines of standard input, of any length.
class Input {
 public:
  explicit Input(Output& oOutput) : moOutput(oOutput) {}

  /// False at the end.
  bool Next(std::string_view& sLine) {
    for (;;) {
      std::size_t lEnd = msBuffer.find('\n', mlSearched);
      if (lEnd != std::string::npos || (mbEnd && mlStart < msBuffer.size())) {
        lEnd = std::min(lEnd, msBuffer.size());
        sLine = std::string_view(msBuffer).substr(mlStart, lEnd - mlStart);
        mlStart = mlSearched = std::min(lEnd + 1, msBuffer.size());
        return true;
      }
      if (mbEnd) return false;
      Read();
    }
  }

 private:
  void Read() {
    moOutput.Flush();
    msBuffer.erase(0, mlStart);
    mlStart = 0;
    mlSearched = msBuffer.size();
    constexpr std::size_t Piece = 1 << 16;
    msBuffer.resize(mlSearched + Piece);
    ssize_t lRead;
    do lRead = read(STDIN_FILENO, msBuffer.data() + mlSearched, Piece);
    while (lRead < 0 && errno == EINTR);
    msBuffer.resize(mlSearched + (lRead > 0 ? static_cast<std::size_t>(lRead) : 0));
    if (lRead < 0) throw Stop{std::string("Standard input can't be read: ") + std::strerror(errno)};
    mbEnd = lRead == 0;
  }

  Output& moOutput;
  std::string msBuffer;
  std::size_t mlStart = 0, mlSearched = 0;
  bool mbEnd = false;
};

Value SettingsJson(const CProcSettings& settings, Document& object) {
  Value json(rapidjson::kObjectType);
  const auto add = [&](rapidjson::Value::StringRefType name, Value value) {
    json.AddMember(name, std::move(value), object.GetAllocator());
  };
  const auto text = [&](TextView words) { return JsonText(ToUtf8(words), object); };
  add("template", text(settings.sTemplate()));
  add("locked", Value(settings.eLocked() == MQuillon::TriState::True));
  add("boundary", text(MQuillon::BoundaryName(settings.eBoundary())));
  add("severity", text(MQuillon::SeverityName(settings.eSeverity())));
  add("retry", text(MQuillon::RetryName(settings.eRetry())));
  add("trace", Value(settings.eTrace() == MQuillon::TriState::True));
  return json;
}

class Worker {
 public:
  explicit Worker(Session& session)
      : mTemplate(session.oTemplate), mOperation(session.oArguments.sAction) {
    mLink = mTemplate.ReportError.Connect(
        [this](TextView message) { mMessages.push_back(ToUtf8(message)); });
  }

  /// Adds "after", "messages" and, for extract, "settings". False when the engine refused.
  bool Answer(TextRequest& request) {
    mMessages.clear();
    Text code = request.sBefore;
    bool errors = false;
    try {
      Run(request, code, errors);
    } catch (const Failure& failure) {
      mMessages.push_back(ToUtf8(failure.Description()));
      errors = true;
    }
    Document& object = request.oObject;
    SetField(object, "after", errors ? Value() : JsonText(ToUtf8(code), object));
    Value messages(rapidjson::kArrayType);
    for (const std::string& message : mMessages)
      messages.PushBack(JsonText(message, object), object.GetAllocator());
    SetField(object, "messages", std::move(messages));
    return !errors;
  }

 private:
  static MQuillon::LineNumAction LineAction(const TextRequest& r) {
    return r.eLineAction == MQuillon::LineNumAction::AsRule ? MRules::oRules.eLineNumAction
                                                            : r.eLineAction;
  }

  void Run(TextRequest& r, Text& code, bool& errors) {
    if (mOperation == "insert") {
      mTemplate.InsertTemplate(r.sModule, r.sName, r.sType, code, r.lBodyLine, r.sTemplate,
                               r.bLocked, r.sBoundary, r.sSeverity, r.sRetry, r.bTrace,
                               LineAction(r), errors, r.sProject, r.sFile);
    } else if (mOperation == "remove") {
      mTemplate.RemoveTemplate(r.sModule, r.sName, r.sType, code, r.lBodyLine, r.sTemplate, errors);
    } else if (mOperation == "number") {
      code = LineNumbers::DoLineNumbers(SplitLines(r.sBefore), LineAction(r), MRules::oRules);
    } else if (mOperation == "extract") {
      CProcSettings settings;
      mTemplate.ExtractProcSettings(code, settings);
      SetField(r.oObject, "settings", SettingsJson(settings, r.oObject));
    } else if (mOperation == "signature") {
      mTemplate.InsertSignatureOnly(r.sName, r.sType, code, r.lBodyLine, r.bLocked, errors);
    } else {
      mTemplate.RemoveSignatureOnly(code, errors);
    }
  }

  CTemplate& mTemplate;
  const std::string& mOperation;
  std::vector<std::string> mMessages;
  Connection mLink;
};

void PutLine(const Document& answer, Output& output) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  answer.Accept(writer);
  buffer.Put('\n');
  output.Put({buffer.GetString(), buffer.GetSize()});
}

Document RefusedLine(std::size_t lineNumber, const std::string& reason) {
  Document answer(rapidjson::kObjectType);
  SetField(answer, "line", Value(static_cast<std::uint64_t>(lineNumber)));
  SetField(answer, "error", JsonText(reason, answer));
  return answer;
}

}  // namespace

int TextCommand(Session& session) {
  if (session.oArguments.sAction != "number") session.OpenTemplate();
  Input input(session.oOutput);
  Worker worker(session);
  int exit = 0;
  std::size_t lineNumber = 0;
  for (std::string_view line; input.Next(line);) {
    ++lineNumber;
    if (line.find_first_not_of(" \t\r") == std::string_view::npos) continue;
    try {
      TextRequest request = ReadTextRequest(line);
      if (!worker.Answer(request)) exit = std::max(exit, 1);
      PutLine(request.oObject, session.oOutput);
    } catch (const Stop& stop) {
      PutLine(RefusedLine(lineNumber, stop.sMessage), session.oOutput);
      exit = 2;
    }
  }
  return exit;
}
