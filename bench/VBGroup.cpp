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

std::string MakeProject(VBGroup& oGroup, const fs::path& oFolder, std::size_t lFirst,
                        std::size_t lCount, std::size_t lLinesEach) {
  const std::size_t lProject = lFirst / lProjectSize;
  const Mixture& oMixture = oMixtures[lProject % oMixtures.size()];
  std::string sProject = "Type=" + std::string(oMixture.sType) + "\r\n";
  for (std::size_t i = lFirst; i < lFirst + lCount; ++i) {
    const Part& oPart = oMixture.oParts[i % oMixture.oParts.size()];
    const std::string sName = oPart.sPrefix + ("Part" + std::to_string(i + 1));
    const std::string sFile = sName + oPart.sExtension;
    const std::string sBytes =
        MakeComponent(oPart.eKind, sName, lLinesEach, static_cast<std::uint32_t>(i + 1));
    WriteFile(oFolder / sFile, sBytes);
    oGroup.lLines += static_cast<std::size_t>(std::ranges::count(sBytes, '\n'));
    oGroup.lBytes += sBytes.size();
    sProject += std::string(oPart.sKey) + "=" + (oPart.bNamed ? sName + "; " : "") + sFile + "\r\n";
  }
  return sProject + "Name=\"Project" + std::to_string(lProject + 1) +
         "\"\r\nStartup=\"(None)\"\r\n";
}

}  // namespace

VBGroup MakeGroup(const fs::path& oFolder, std::size_t lComponents, std::size_t lLines) {
  VBGroup oGroup{oFolder / "Group.vbg"};
  std::string sGroup = "VBGROUP 5.0\r\n";
  for (std::size_t lFirst = 0; lFirst < lComponents; lFirst += lProjectSize) {
    const std::string sName = "Project" + std::to_string(lFirst / lProjectSize + 1);
    fs::create_directories(oFolder / sName);
    WriteFile(oFolder / sName / (sName + ".vbp"),
              MakeProject(oGroup, oFolder / sName, lFirst,
                          std::min(lProjectSize, lComponents - lFirst), lLines / lComponents));
    sGroup += (lFirst == 0 ? "StartupProject=" : "Project=") + sName + "\\" + sName + ".vbp\r\n";
  }
  WriteFile(oGroup.oFile, sGroup);
  return oGroup;
}
