#include "DesktopProgram.h"

#include <filesystem>

#include "AskPdfFile.h"
#include "BoxText.h"
#include "CXRecent.h"
#include "Connect.h"
#include "Desktop.h"
#include "FIDE.h"
#include "FMain.h"
#include "IErrorRuntime.h"
#include "MStartUp.h"
#include "PathText.h"
#include "Pictures.h"
#include "Printers.h"

namespace {

/// Where help and the first template lie: the folder of the program itself, also when it is
/// reached by a link.
Text ProgramFolder() {
  std::error_code oError;
  const auto oProgram = std::filesystem::read_symlink("/proc/self/exe", oError);
  return TextOfPath(oError ? "." : oProgram.parent_path().string());
}

std::string PictureBytes(const ButtonFaces& oFaces, TextView sKey, std::int32_t lPixels) {
  const auto oDrawn = FindPicture(sKey, lPixels);
  if (!oDrawn.empty()) return {reinterpret_cast<const char*>(oDrawn.data()), oDrawn.size()};
  return oFaces.Find(sKey);
}

void TellSettingsProblems(Forms::Toolkit& oToolkit, const RegistryStore& oStore) {
  if (oStore.Problems().empty()) return;
  const Text sHead =
      u"Some lines of the settings file aren't understood. They are passed over, and stay "
      u"as they are:\r\n\r\n" +
      TextOfPath(oStore.Path());
  std::vector<Text> asProblem;
  for (const RegistryStore::Problem& oProblem : oStore.Problems())
    asProblem.push_back(u"Line " + ToText(static_cast<long long>(oProblem.lLine)) + u": " +
                        oProblem.sMessage);
  oToolkit.MsgBox(sHead + BoxList(asProblem, u"\r\n"), Forms::MsgBoxButtons::OkOnly,
                  Forms::MsgBoxIcon::Exclamation);
}

int RunIDE(Forms::Toolkit& oToolkit, const DesktopArguments& oArguments, ButtonFaces& oFaces) {
  if (!oArguments.sTemplateFile.empty()) RecentFiles().Add(TextOfPath(oArguments.sTemplateFile));
  Paper::Printers oPrinters([&](TextView sTitle) { return AskPdfFile(oToolkit, sTitle); });
  FIDE oIDE(oToolkit, oFaces, [&] {
    goError->SetEnding(false);  // an add-in that ended after a failure can be loaded again
    return std::make_unique<Connect>(oToolkit, oPrinters);
  });
  oIDE.Start({TextOfPath(oArguments.sGroup), oArguments.nConnectMode, oArguments.roots});
  Forms::RunForms(oToolkit);
  return 0;
}

}  // namespace

int RunDesktopProgram(Forms::Toolkit& oToolkit, const DesktopArguments& oArguments,
                      const RegistryStore& oStore, Text sCommandLine) {
  ButtonFaces oFaces;
  oToolkit.SetTitle(u"Tarvane Quillon");
  oToolkit.SetPath(ProgramFolder());
  oToolkit.SetHelpFile(u"Tarvane.htb");
  oToolkit.SetPictures(
      [&](TextView sKey, std::int32_t lPixels) { return PictureBytes(oFaces, sKey, lPixels); });
  if (!MStartUp::Main(
          {oToolkit, std::move(sCommandLine), oArguments.sLogFile, {u"FIDE", u"FSave"}, {}}))
    return 1;
  TellSettingsProblems(oToolkit, oStore);
  const int nExit = RunIDE(oToolkit, oArguments, oFaces);
  MStartUp::End();
  return nExit;
}
