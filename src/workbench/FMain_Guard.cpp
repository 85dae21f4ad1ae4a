// Operations inside one another, and the progress of a load over the status bar.
#include <utility>

#include "FMain.h"
#include "Toolkit.h"

using namespace Forms;

void FMain::EventPush(std::int32_t MousePointer) {
  if (++miEventDepth == 1) App().Screen().SetMousePointer(MousePointer);
}

void FMain::EventPop() {
  if (miEventDepth > 0) --miEventDepth;
  if (miEventDepth > 0) return;
  App().Screen().SetMousePointer(Pointer::Default);
  // The operation may have closed the window; changing a control would load it again.
  if (Loaded()) picProgress.SetVisible(false);
}

void FMain::EventFlush() {
  miEventDepth = 0;
  App().Screen().SetMousePointer(Pointer::Default);
  if (Loaded()) picProgress.SetVisible(false);
  App().LockWindowUpdate(nullptr);
}

void FMain::ProgressStart() {
  msSavedPanel1 = StatusBar1.Panels(1).Text();
  StatusBar1.Panels(1).SetText({});
  msSavedPanel2 = StatusBar1.Panels(2).Text();
  mbPanelsSaved = true;
  StatusBar1.Panels(2).SetText({});
  picProgress.SetWidth(0);
  picProgress.SetVisible(true);
}

void FMain::Progress(std::int16_t Percent, TextView Caption) {
  if (Percent < 0 || Percent > 100) return;
  picProgress.SetWidth(StatusBar1.Panels(1).Width() * Percent / 100);
  picProgress.Refresh();
  StatusBar1.Panels(2).SetText(Caption);
  StatusBar1.Refresh();
}

void FMain::ProgressEnd() {
  picProgress.SetVisible(false);
  picProgress.SetWidth(0);
  // The model raises this event also for small loads, for which ProgressStart wasn't raised.
  if (!std::exchange(mbPanelsSaved, false)) return;
  StatusBar1.Panels(1).SetText(msSavedPanel1);
  StatusBar1.Panels(2).SetText(msSavedPanel2);
}
