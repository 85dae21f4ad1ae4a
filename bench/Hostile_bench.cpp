// Inputs that nobody writes by hand, made to take long: the time of each grows with its size and
// no faster (the row ends in _BigO, which names the law that was measured).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "CIDEHandler.h"
#include "CTemplate.h"
#include "DiskIDE.h"
#include "PathFinder.h"
#include "TemplateCheck.h"

namespace {

std::string Numbered(const std::string& text, std::int64_t number) {
  return text + std::to_string(number);
}

/// One line of declarations with that many event sources.
void ManyEventSources(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / "quillon-bench-sources";
  std::filesystem::create_directories(folder);
  std::string line = "Dim WithEvents a As Foo";
  for (std::int64_t i = 1; i < state.range(0); ++i)
    line += Numbered(", WithEvents a", i) + " As Foo";
  std::ofstream(folder / "C.cls") << "Attribute VB_Name = \"C\"\r\n" + line + "\r\n";
  std::ofstream(folder / "P.vbp") << "Type=Exe\r\nClass=C; C.cls\r\n";
  const MRules::Values rules;
  for (auto _ : state) {
    CTemplate engine(rules);
    CIDEHandler handler;
    const auto ide = DiskIDE::Open(folder.string(), {});
    handler.oTemplate = &engine;
    handler.LoadProjects(ide->Root());
    handler.LoadComponent(ComponentHandle(1));
  }
  state.SetComplexityN(state.range(0));
  std::filesystem::remove_all(folder);
}

/// A thousand drive paths of so many parts, in which some are named like the folder around the
/// project, some aren't there, and some lead up again.
void LongDrivePaths(benchmark::State& state, TextView parts) {
  Text path = u"C:";
  while (std::ranges::count(path, u'\\') + 1 < state.range(0)) path += parts;
  for (auto _ : state) {
    PathFinder finder(SystemFileOps());
    for (int i = 0; i < 1'000; ++i)
      benchmark::DoNotOptimize(finder.Find("/tmp", path + u"\\x" + ToText(i) + u".bas"));
  }
  state.SetComplexityN(state.range(0));
}

/// One request of `quillon text` with that many fields, half of which stand twice. The start of the
/// program is part of the time.
void ManyRequestFields(benchmark::State& state) {
  const auto requests = std::filesystem::temp_directory_path() / "quillon-bench-requests";
  std::ofstream file(requests);
  file << R"({"before": "Sub Run()\r\nEnd Sub")";
  for (std::int64_t i = 0; i < state.range(0); ++i)
    file << Numbered(", \"k", i * 2 % state.range(0)) << "\": " << i;
  file << "}\n";
  file.close();
  const std::string command = QUILLON_BIN_DIR "/quillon text extract -t " QUILLON_SOURCE_DIR
                                              "/samples/Template.dat <" +
                              requests.string() + " >/dev/null";
  for (auto _ : state)
    if (std::system(command.c_str()) != 0) state.SkipWithError(command.c_str());
  state.SetComplexityN(state.range(0));
  std::filesystem::remove(requests);
}

/// A template with a fault in each of its rows.
void ManyTemplateFaults(benchmark::State& state) {
  Text text =
      u"<#Template name=Signature type=signature>\r\n<#Start>\r\n'Sign: <%Signature>\r\n<#End>\r\n"
      u"<#Template name=Q type=module>\r\n<#Start>\r\n";
  for (std::int64_t i = 0; i < state.range(0); ++i) text += u"Dim <%Boundary> \r\n";
  text += u"<#End>\r\n";
  const MRules::Values rules;
  CTemplate engine(rules);
  engine.LoadTemplateText(u"Template.dat", text);
  for (auto _ : state) benchmark::DoNotOptimize(CheckTemplate(engine));
  state.SetComplexityN(state.range(0));
}

BENCHMARK(ManyEventSources)->RangeMultiplier(2)->Range(25'000, 200'000)->Complexity();
BENCHMARK_CAPTURE(LongDrivePaths, down, u"\\tmp")->RangeMultiplier(2)->Range(50, 400)->Complexity();
BENCHMARK_CAPTURE(LongDrivePaths, up, u"\\tmp\\..\\lost\\tmp\\..\\..")
    ->RangeMultiplier(2)
    ->Range(50, 400)
    ->Complexity();
BENCHMARK(ManyRequestFields)
    ->RangeMultiplier(2)
    ->Range(100'000, 800'000)
    ->UseRealTime()
    ->Complexity();
BENCHMARK(ManyTemplateFaults)->RangeMultiplier(2)->Range(3'750, 30'000)->Complexity();

}  // namespace
