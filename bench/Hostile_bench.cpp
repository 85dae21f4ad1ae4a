// Inputs that nobody writes by hand, made to take long: the time of each grows with its size and
// no faster (the row ends in _BigO, which names the law that was measured).
#include <benchmark/benchmark.h>

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

/// Drive paths of 200 parts, each part named like the folder around the project.
void ManyDrivePaths(benchmark::State& state) {
  Text path = u"C:";
  for (int i = 0; i < 199; ++i) path += u"\\tmp";
  for (auto _ : state) {
    PathFinder finder(SystemFileOps());
    for (std::int64_t i = 0; i < state.range(0); ++i)
      benchmark::DoNotOptimize(finder.Find("/tmp", path + u"\\x" + ToText(i) + u".bas"));
  }
  state.SetComplexityN(state.range(0));
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
BENCHMARK(ManyDrivePaths)->RangeMultiplier(2)->Range(250, 2'000)->Complexity();
BENCHMARK(ManyTemplateFaults)->RangeMultiplier(2)->Range(3'750, 30'000)->Complexity();

}  // namespace
