#include "WindowEvents.h"

#include <utility>

#include "CIDEHandler.h"
#include "Toolkit.h"

using namespace Forms;

void WindowEvents::Push(std::int32_t pointer) {
  if (++depth == 1) form.App().Screen().SetMousePointer(pointer);
}

void WindowEvents::Pop() {
  if (depth > 0) --depth;
  if (depth > 0) return;
  form.App().Screen().SetMousePointer(Pointer::Default);
  // The operation may have closed the window; changing a control would load it again.
  if (form.Loaded()) form.picProgress.SetVisible(false);
}

void WindowEvents::Flush() {
  depth = 0;
  Pop();
  form.App().LockWindowUpdate(nullptr);
}

void WindowEvents::ProgressStart() {
  Panel &count = form.StatusBar1.Panels(1), &path = form.StatusBar1.Panels(2);
  savedPanel1 = count.Text();
  savedPanel2 = path.Text();
  panelsSaved = true;
  count.SetText({});
  path.SetText({});
  form.picProgress.SetWidth(0);
  form.picProgress.SetVisible(true);
}

void WindowEvents::Progress(std::int16_t percent, TextView caption) {
  if (percent < 0 || percent > 100) return;
  form.picProgress.SetWidth(form.StatusBar1.Panels(1).Width() * percent / 100);
  form.picProgress.Refresh();
  form.StatusBar1.Panels(2).SetText(caption);
  form.StatusBar1.Refresh();
}

void WindowEvents::ProgressEnd() {
  form.picProgress.SetVisible(false);
  form.picProgress.SetWidth(0);
  // The model tells the end also of small loads, whose start it didn't tell.
  if (!std::exchange(panelsSaved, false)) return;
  form.StatusBar1.Panels(1).SetText(savedPanel1);
  form.StatusBar1.Panels(2).SetText(savedPanel2);
}

void WindowEvents::Connect(CIDEHandler& model, std::vector<Connection>& links) {
  links.push_back(model.ProgressStart.Connect([this] {
    if (!overRows) ProgressStart();
  }));
  links.push_back(model.ProgressEnd.Connect([this] {
    if (!overRows) ProgressEnd();
  }));
  links.push_back(model.Progress.Connect([this](std::int16_t percent, TextView caption) {
    if (!overRows) Progress(percent, caption);
  }));
}

WindowEvents::Rows::Rows(WindowEvents& shown, std::size_t number) : events(shown), count(number) {
  constexpr std::size_t RowsWorthProgress =
      30;  // for fewer rows the bar would only flicker; a choice
  if (count < RowsWorthProgress) return;
  events.ProgressStart();
  events.overRows = true;
}

WindowEvents::Rows::~Rows() {
  if (!std::exchange(events.overRows, false)) return;
  if (events.form.Loaded()) events.ProgressEnd();
}

void WindowEvents::Rows::Next(TextView caption) {
  ++row;
  if (events.overRows) events.Progress(static_cast<std::int16_t>(row * 100 / count), caption);
}
