// The forms in which findings are told. A form is a class in a file of its own and a row in
// FindingFormat.cpp; whoever has findings hands them over one by one, in their order:
//
//   const auto format = MakeFindingFormat("sarif", {.sink = output, .version = "3.1.0"});
//   format->Begin(result);
//   for (const Finding& finding : result.findings) format->Add(Told(finding));
//   format->End(result);
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Finding.h"
#include "ReviewFinding.h"
#include "TextSink.h"

class FindingFormat {
 public:
  struct Place {
    TextSink& sink;
    std::string version;     ///< of the program
    bool isColored = false;  ///< for a terminal with colours
  };

  explicit FindingFormat(const Place& place) : mPlace(place) {}
  virtual ~FindingFormat() = default;
  FindingFormat(const FindingFormat&) = delete;
  FindingFormat& operator=(const FindingFormat&) = delete;

  /// result holds all findings that will come.
  virtual void Begin(const CheckResult& result);
  virtual void Add(const ReviewFinding& finding) = 0;
  virtual void End(const CheckResult& result);

 protected:
  void Put(std::string_view text) { mPlace.sink.Put(text); }
  Place mPlace;
};

/// "text" for an empty name; null for one that there is not.
std::unique_ptr<FindingFormat> MakeFindingFormat(std::string_view name,
                                                 const FindingFormat::Place& place);

std::unique_ptr<FindingFormat> MakeTextFormat(const FindingFormat::Place& place);
std::unique_ptr<FindingFormat> MakeJsonFormat(const FindingFormat::Place& place);
std::unique_ptr<FindingFormat> MakeSarifFormat(const FindingFormat::Place& place);
std::unique_ptr<FindingFormat> MakeGithubFormat(const FindingFormat::Place& place);
std::unique_ptr<FindingFormat> MakeJunitFormat(const FindingFormat::Place& place);
std::unique_ptr<FindingFormat> MakeGitlabFormat(const FindingFormat::Place& place);
