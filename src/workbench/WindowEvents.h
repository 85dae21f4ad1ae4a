// The main window's handlers of events: their guard, the hourglass while they run inside one
// another, and the bar that shows over the status bar how far a long one has come.
//
//   OnEvent(u"mnuFileExit_Click", [&] { ... });         // no failure leaves it
//   window.events.Busy(u"OpenTemplate", [&] { ... });   // the same, under the hourglass
#pragma once

#include "Guard.h"
#include "MainForm.h"

class CIDEHandler;

/// True when the work came to its end.
template <class Work>
bool OnEvent(TextView routine, Work&& work, std::int32_t severity = ErrorIds::SeverityNormal) {
  return Guard({u"FMain", routine, ErrorIds::BoundaryVB, severity}, [&](GuardScope&) { work(); });
}

class WindowEvents {
 public:
  explicit WindowEvents(MainForm& owner) : form(owner) {}

  /// Counts operations; the outermost sets the pointer of the screen, and its end gives the normal
  /// one back. Blocks nothing.
  void Push(std::int32_t pointer);
  void Pop();
  /// Ends all operations that a failure left open.
  void Flush();
  /// True inside at least two operations.
  bool Cascaded() const { return depth >= 2; }

  /// A failure leaves the hourglass to the next Flush.
  template <class Work>
  void Busy(TextView routine, Work&& work) {
    OnEvent(routine, [&] {
      Push(Forms::Pointer::Hourglass);
      work();
      Pop();
    });
  }

  /// Borrows both panels of the status bar, until ProgressEnd.
  void ProgressStart();
  /// percent: 0 to 100; others change nothing.
  void Progress(std::int16_t percent, TextView caption);
  void ProgressEnd();

  /// Shows the model's own progress, except while that over rows is shown.
  void Connect(CIDEHandler& model, std::vector<Connection>& links);

  /// Shows progress over the rows of a list, if they are many.
  class Rows {
   public:
    Rows(WindowEvents& shown, std::size_t number);
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows();
    void Next(TextView caption);

   private:
    WindowEvents& events;
    std::size_t count, row = 0;
  };

 private:
  MainForm& form;
  std::int16_t depth = 0;
  bool panelsSaved = false, overRows = false;
  Text savedPanel1, savedPanel2;
};
