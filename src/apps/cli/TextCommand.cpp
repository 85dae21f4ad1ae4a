// text OP: the engine's bare operations on procedure texts, one JSON object per line in and out.
// Answers leave as soon as no further request is waiting, so that an editor can hold a
// conversation and a script can send millions.
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Commands.h"
#include "Failure.h"
#include "LineNumbers.h"
#include "MQuillon.h"
#include "TextRequest.h"

namespace {

using Json = nlohmann::ordered_json;

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

Json SettingsJson(const CProcSettings& oSettings) {
  Json oJson;
  oJson["template"] = ToUtf8(oSettings.sTemplate());
  oJson["locked"] = oSettings.eLocked() == MQuillon::TriState::True;
  oJson["boundary"] = ToUtf8(MQuillon::BoundaryName(oSettings.eBoundary()));
  oJson["severity"] = ToUtf8(MQuillon::SeverityName(oSettings.eSeverity()));
  oJson["retry"] = ToUtf8(MQuillon::RetryName(oSettings.eRetry()));
  oJson["trace"] = oSettings.eTrace() == MQuillon::TriState::True;
  return oJson;
}

class Worker {
 public:
  explicit Worker(Session& oSession)
      : moTemplate(oSession.oTemplate), msOp(oSession.oArguments.sAction) {
    moLink = moTemplate.ReportError.Connect(
        [this](TextView sMessage) { moMessages.push_back(ToUtf8(sMessage)); });
  }

  /// Adds "after", "messages" and, for extract, "settings". False when the engine refused.
  bool Answer(TextRequest& oRequest) {
    moMessages = Json::array();
    Text sCode = oRequest.sBefore;
    bool bErrors = false;
    try {
      Run(oRequest, sCode, bErrors);
    } catch (const Failure& oFailure) {
      moMessages.push_back(ToUtf8(oFailure.Description()));
      bErrors = true;
    }
    oRequest.oObject["after"] = bErrors ? Json() : Json(ToUtf8(sCode));
    oRequest.oObject["messages"] = std::move(moMessages);
    return !bErrors;
  }

 private:
  static MQuillon::LineNumAction LineAction(const TextRequest& r) {
    return r.eLineAction == MQuillon::LineNumAction::AsRule ? MRules::oRules.eLineNumAction
                                                            : r.eLineAction;
  }

  void Run(TextRequest& r, Text& sCode, bool& bErrors) {
    if (msOp == "insert") {
      moTemplate.InsertTemplate(r.sModule, r.sName, r.sType, sCode, r.lBodyLine, r.sTemplate,
                                r.bLocked, r.sBoundary, r.sSeverity, r.sRetry, r.bTrace,
                                LineAction(r), bErrors);
    } else if (msOp == "remove") {
      moTemplate.RemoveTemplate(r.sModule, r.sName, r.sType, sCode, r.lBodyLine, r.sTemplate,
                                bErrors);
    } else if (msOp == "number") {
      sCode = LineNumbers::DoLineNumbers(SplitLines(r.sBefore), LineAction(r), MRules::oRules);
    } else if (msOp == "extract") {
      CProcSettings oSettings;
      moTemplate.ExtractProcSettings(sCode, oSettings);
      r.oObject["settings"] = SettingsJson(oSettings);
    } else if (msOp == "signature") {
      moTemplate.InsertSignatureOnly(r.sName, r.sType, sCode, r.lBodyLine, r.bLocked, bErrors);
    } else {
      moTemplate.RemoveSignatureOnly(sCode, bErrors);
    }
  }

  CTemplate& moTemplate;
  const std::string& msOp;
  Json moMessages = Json::array();
  Connection moLink;
};

}  // namespace

int TextCommand(Session& oSession) {
  if (oSession.oArguments.sAction != "number") oSession.OpenTemplate();
  Input oInput(oSession.oOutput);
  Worker oWorker(oSession);
  int nExit = 0;
  std::size_t lLine = 0;
  for (std::string_view sLine; oInput.Next(sLine);) {
    ++lLine;
    if (sLine.find_first_not_of(" \t\r") == std::string_view::npos) continue;
    Json oAnswer;
    try {
      TextRequest oRequest = ReadTextRequest(sLine);
      if (!oWorker.Answer(oRequest)) nExit = std::max(nExit, 1);
      oAnswer = std::move(oRequest.oObject);
    } catch (const Stop& oStop) {
      oAnswer = {{"line", lLine}, {"error", oStop.sMessage}};
      nExit = 2;
    }
    oSession.oOutput.Put(oAnswer.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n');
  }
  return nExit;
}
