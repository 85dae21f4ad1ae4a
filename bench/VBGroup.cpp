#include "VBGroup.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>

#include "VBComponent.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t lProjectSize = 100;

struct Part {
  VBKind eKind;
  const char *sPrefix, *sExtension, *sKey;
  bool bNamed;  ///< the project's entry holds the name ahead of the file
};
constexpr Part oModule = {VBKind::Module, "M", ".bas", "Module", true};
constexpr Part oClass = {VBKind::Class, "C", ".cls", "Class", true};
constexpr Part oForm = {VBKind::Form, "F", ".frm", "Form", false};
constexpr Part oControl = {VBKind::Control, "U", ".ctl", "UserControl", false};

/// The mixture of a project, repeated; which one follows from its number.
struct Mixture {
  const char* sType;
  std::array<Part, 5> oParts;
};
constexpr std::array<Mixture, 3> oMixtures = {{
    {"Exe", {oForm, oClass, oModule, oForm, oClass}},
    {"OleDll", {oClass, oClass, oClass, oClass, oModule}},
    {"Control", {oControl, oClass, oModule, oControl, oClass}},
}};

void WriteFile(const fs::path& oFile, const std::string& sBytes) {
  std::ofstream oStream;
  oStream.exceptions(std::ios::failbit | std::ios::badbit);
  oStream.open(oFile, std::ios::binary | std::ios::trunc);
  oStream.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
}

/// What distinguishes the shapes of groups.
struct Shape {
  std::size_t projects;
  std::size_t sharedEach;  ///< files of other projects that each names
  bool namesMissing;
  std::uint32_t handlerOneIn;
};

Shape ShapeOf(VBAge age, std::size_t components) {
  if (age == VBAge::Old) return {(components * 35 + 99) / 100, 6, true, 3};
  return {(components + lProjectSize - 1) / lProjectSize, 0, false, 50};
}

class GroupMaker {
 public:
  GroupMaker(const fs::path& folder, std::size_t components, std::size_t lines, VBAge age)
      : mShape(ShapeOf(age, components)),
        mFolder(folder),
        mComponents(components),
        mLinesEach(lines / components),
        mGroup{folder / "Group.vbg"} {}

  VBGroup Make() {
    std::string group = "VBGROUP 5.0\r\n";
    for (std::size_t project = 0; project < mShape.projects; ++project) {
      const std::string name = ProjectName(project);
      fs::create_directories(mFolder / name);
      WriteFile(mFolder / name / (name + ".vbp"), Project(project));
      group += (project == 0 ? "StartupProject=" : "Project=") + name + "\\" + name + ".vbp\r\n";
    }
    WriteFile(mGroup.oFile, group);
    return mGroup;
  }

 private:
  static std::string ProjectName(std::size_t project) {
    return "Project" + std::to_string(project + 1);
  }
  std::size_t FirstOf(std::size_t project) const {
    if (mShape.sharedEach == 0) return std::min(project * lProjectSize, mComponents);
    return project * mComponents / mShape.projects;
  }
  std::size_t ProjectOf(std::size_t component) const {
    std::size_t project = component * mShape.projects / mComponents;
    while (project > 0 && FirstOf(project) > component) --project;
    while (FirstOf(project + 1) <= component) ++project;
    return project;
  }
  const Mixture& MixtureOf(std::size_t project) const {
    return oMixtures[project % oMixtures.size()];
  }
  const Part& PartOf(std::size_t component) const {
    const Mixture& mixture = MixtureOf(ProjectOf(component));
    return mixture.oParts[component % mixture.oParts.size()];
  }

  std::string Project(std::size_t project) {
    std::string text = "Type=" + std::string(MixtureOf(project).sType) + "\r\n";
    for (std::size_t i = FirstOf(project); i < FirstOf(project + 1); ++i) {
      WriteComponent(project, i);
      text += Entry(i, "");
    }
    for (std::size_t i = 1; i <= mShape.sharedEach; ++i) {
      const std::size_t other = (FirstOf(project) + i * i * 37) % mComponents;
      if (ProjectOf(other) != project)
        text += Entry(other, "..\\" + ProjectName(ProjectOf(other)) + "\\");
    }
    if (mShape.namesMissing) text += "Module=MGone; ..\\Gone\\MGone.bas\r\n";
    return text + "Name=\"" + ProjectName(project) + "\"\r\nStartup=\"(None)\"\r\n";
  }

  std::string Entry(std::size_t component, const std::string& folder) const {
    const Part& part = PartOf(component);
    const std::string name = NameOf(component);
    return std::string(part.sKey) + "=" + (part.bNamed ? name + "; " : "") + folder + name +
           part.sExtension + "\r\n";
  }
  std::string NameOf(std::size_t component) const {
    return PartOf(component).sPrefix + ("Part" + std::to_string(component + 1));
  }

  void WriteComponent(std::size_t project, std::size_t component) {
    const Part& part = PartOf(component);
    const std::string bytes =
        MakeComponent(part.eKind, NameOf(component), mLinesEach,
                      static_cast<std::uint32_t>(component + 1), mShape.handlerOneIn);
    WriteFile(mFolder / ProjectName(project) / (NameOf(component) + part.sExtension), bytes);
    mGroup.lLines += static_cast<std::size_t>(std::ranges::count(bytes, '\n'));
    mGroup.lBytes += bytes.size();
  }

  const Shape mShape;
  const fs::path mFolder;
  const std::size_t mComponents, mLinesEach;
  VBGroup mGroup;
};

}  // namespace

VBGroup MakeGroup(const fs::path& oFolder, std::size_t lComponents, std::size_t lLines, VBAge age) {
  return GroupMaker(oFolder, lComponents, lLines, age).Make();
}
