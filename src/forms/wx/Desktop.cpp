#include "Desktop.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/msgdlg.h>

#include <cstdio>

#include "Failure.h"
#include "HostWindow.h"
#include "NativeText.h"
#include "PictureReader.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// Shows an exception that no handler caught before it reached the event loop, which is a fault of
/// the program, and goes on.
class DesktopApp : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    AddPictureReader();
    return true;
  }
  bool OnExceptionInMainLoop() override {
    wxString sWhat;
    try {
      throw;
    } catch (const Failure& o) {
      sWhat = ToWx(o.Description());
    } catch (const std::exception& o) {
      sWhat = wxString::FromUTF8(o.what());
    }
    wxMessageBox(sWhat, wxMessageBoxCaptionStr, wxOK | wxICON_ERROR);
    return true;
  }
};

void PrintAssert(const wxString& sFile, int nLine, const wxString&, const wxString& sCondition,
                 const wxString& sMessage) {
  std::fprintf(stderr, "%s:%d: %s %s\n", sFile.utf8_str().data(), nLine,
               sCondition.utf8_str().data(), sMessage.utf8_str().data());
}

/// The window system between its start and its end.
class Session {
 public:
  Session() {
    wxSetAssertHandler(PrintAssert);
    wxApp::SetInstance(new DesktopApp);
    const wxLogNull oQuiet;  // without a display the library would try to show this error in a box
    int nArguments = 0;
    mbRuns = wxEntryStart(nArguments, static_cast<wxChar**>(nullptr)) && wxTheApp->CallOnInit();
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() {
    if (mbRuns) wxTheApp->OnExit();
    wxEntryCleanup();
  }
  bool Runs() const { return mbRuns; }

 private:
  bool mbRuns = false;
};

/// What has to be said ahead of the start, and taken back behind the end.
struct Place {
  Place(void* poModule, std::function<std::intptr_t()> oWindow) {
    HostWindow::Enter(poModule, std::move(oWindow));
  }
  ~Place() { HostWindow::Leave(); }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;
};

}  // namespace

struct HostedDesktop::Parts {
  Parts(void* poModule, std::function<std::intptr_t()> oWindow)
      : oPlace(poModule, std::move(oWindow)) {
    if (!oSession.Runs()) throw Failure(5, u"The window system can't be started");
    pRenderer = std::make_unique<WxRenderer>();
    pToolkit = std::make_unique<Toolkit>(*pRenderer);
    pRenderer->SetToolkit(*pToolkit);
  }

  Place oPlace;
  Session oSession;
  std::unique_ptr<WxRenderer> pRenderer;
  std::unique_ptr<Toolkit> pToolkit;
};

HostedDesktop::HostedDesktop(void* poModule, std::function<std::intptr_t()> oWindow)
    : mpParts(std::make_unique<Parts>(poModule, std::move(oWindow))) {}

HostedDesktop::~HostedDesktop() = default;

Toolkit& HostedDesktop::Kit() {
  return *mpParts->pToolkit;
}

int RunDesktop(const std::function<int(Toolkit&)>& oProgram) {
  const Session oSession;
  if (!oSession.Runs()) {
    std::fputs("There is no display to show windows on\n", stderr);
    return 3;
  }
  WxRenderer oRenderer;
  Toolkit oToolkit(oRenderer);
  oRenderer.SetToolkit(oToolkit);
  return oProgram(oToolkit);
}

}  // namespace Forms
