#include "MStartUp.h"

#include "BoxErrorDialog.h"
#include "ErrorRuntime.h"
#include "ExceptionFilter.h"
#include "Guard.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXHTMLHelp.h"
#include "Toolkit.h"

namespace MStartUp {

std::unique_ptr<CErrorClient> goErrorClient;

}  // namespace MStartUp

namespace {

using MStartUp::Setup;

std::unique_ptr<IErrorDialog> gpDialog;
std::unique_ptr<IErrorRuntime> gpRuntime;

std::unique_ptr<IErrorRuntime> MakeRuntime(const Setup& oSetup) {
  if (oSetup.oMakeRuntime) return oSetup.oMakeRuntime(*gpDialog);
  return std::make_unique<ErrorRuntime>(*gpDialog, oSetup.sLogFile);
}

/// lLine: number of the step in work, for the box that tells of a failure.
void StartErrorRuntime(const Setup& oSetup, std::int32_t& lLine) {
  const auto Step = [&lLine](auto&& oCall) {
    ++lLine;
    oCall();
  };
  Step([] { ExceptionFilter::Install(); });
  Step([&] {
    MStartUp::goErrorClient = std::make_unique<CErrorClient>(oSetup.oToolkit, oSetup.asHostForm);
  });
  Step([&] {
    gpDialog = std::make_unique<BoxErrorDialog>(oSetup.oToolkit);
    gpRuntime = MakeRuntime(oSetup);
    goError = gpRuntime.get();
  });
  Step([] { goError->SetErrorClient(MStartUp::goErrorClient.get()); });
  Step([] { goError->SetApplicationName(u"TarvaneQuillon"); });
  Step([&] { goError->SetApplicationPath(oSetup.oToolkit.Path()); });
  Step([] { goError->SetDevelopmentMode(false); });
  Step([&] { goError->SetTraceEnabled(oSetup.sCommandLine.find(u"/TRACE") != Text::npos); });
  Step([] { goError->Start(); });
}

Failure FailureInFlight() {
  try {
    throw;
  } catch (const Failure& oFailure) {
    return oFailure;
  } catch (const std::exception& oException) {
    return Failure(51, FromUtf8(oException.what()));
  }
}

void TellFailure(Forms::Toolkit& oToolkit, const Failure& oFailure, std::int32_t lLine) {
  const Text sText = u"Failed to Initialize Error Handling\r\n\r\nDescription = " +
                     oFailure.Description() + u"\r\nSource = [Sub Main][Line " + ToText(lLine) +
                     u"]" + oFailure.Source() + u"\r\nError = " + ToText(oFailure.Number());
  oToolkit.MsgBox(sText, Forms::MsgBoxButtons::OkOnly, Forms::MsgBoxIcon::Critical);
}

}  // namespace

bool MStartUp::Main(const Setup& oSetup) {
  std::int32_t lLine = 0;
  try {
    StartErrorRuntime(oSetup, lLine);
  } catch (const std::exception&) {
    const Failure oFailure = FailureInFlight();
    End();
    TellFailure(oSetup.oToolkit, oFailure, lLine);
    return false;
  }
  StartUp(oSetup.oToolkit);
  return true;
}

void MStartUp::StartUp(Forms::Toolkit& oToolkit) {
  Guard({u"MStartUp", u"StartUp", ErrorIds::BoundaryFirewall}, [&](GuardScope& oScope) {
    oScope.Step([] { MQuillon::Initialize(); });
    oScope.Step([] { MRules::Initialize(); });
    oScope.Step([] { MOptions::Initialize(); });
    oScope.Step([&] {
      const Text sFile = oToolkit.Path() + u"/" + oToolkit.HelpFile();
      MXHTMLHelp::SetHelpFile(sFile);
      oToolkit.SetHelpFile(sFile);
    });
  });
}

void MStartUp::End() {
  goError = &SilentErrorRuntime();
  gpRuntime.reset();
  gpDialog.reset();
  goErrorClient.reset();
}
