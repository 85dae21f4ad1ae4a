// The one handler of a routine. A routine names itself and its three constants once and runs its
// work inside the guard; calls that leave the system (IDE object, file, registry, printer) are
// steps, so that the run-time's answer can repeat the failing step or go on behind it.
//
//   bool bDone = Guard({u"CIDEHandler", u"LoadComponent", ErrorIds::BoundaryFirewall},
//                      [&](GuardScope& oScope) {
//     oScope.Step([&] { oModule.DeleteLines(lStart, lCount); });
//     ...
//   });
//
// What happens with a failure that escapes the work or a step, after ReportError:
//   action 4  the step is run again (a failure outside any step can't be repeated: it leaves)
//   action 5  the work goes on behind the failing step
//   other     CloseError; then, with boundary None, the failure goes on to the caller of the
//             routine (it is marked as reported, so it is logged once); with any other boundary
//             it ends here and Guard returns false: the routine leaves with the result built so
//             far.
// Exceptions of the C++ library become Failures first (bad_alloc 7, others 51 with their text).
#pragma once

#include <string_view>
#include <utility>

#include "IErrorRuntime.h"

struct Routine {
  std::u16string_view sModule;
  std::u16string_view sProcedure;
  std::int32_t eBoundary = ErrorIds::BoundaryNone;
  std::int32_t eSeverity = ErrorIds::SeverityNormal;
  std::int32_t eRetry = ErrorIds::RetryLine;
};

class GuardScope {
 public:
  explicit GuardScope(const Routine& oRoutine);
  ~GuardScope();
  GuardScope(const GuardScope&) = delete;
  GuardScope& operator=(const GuardScope&) = delete;

  /// Runs a call that leaves the system. True: it worked. False: it failed and the answer was to
  /// go on behind it. Throws when the routine has to leave.
  template <class Call>
  bool Step(Call&& oCall) {
    for (;;) {
      try {
        std::forward<Call>(oCall)();
        return true;
      } catch (...) {
        if (!RepeatsFailedStep()) return false;
      }
    }
  }

  /// Runs a call whose result the rest can't do without, and gives that result. An answer to go on
  /// behind it leaves the routine as well, with the failure marked as reported.
  template <class Call>
  decltype(auto) Require(Call&& call) {
    for (;;) {
      try {
        return call();
      } catch (...) {
        if (!RepeatsFailedStep()) LeaveReported();
      }
    }
  }

  /// For Guard only. Takes the exception in flight of the whole work; rethrows with boundary None.
  void EndOfRoutine();

 private:
  /// Reports the exception in flight: true to repeat, false to go on, throws to leave.
  bool RepeatsFailedStep();

  /// Throws the exception in flight again, as a failure that has been reported.
  [[noreturn]] static void LeaveReported();

  const Routine& moRoutine;
  bool mbTraced;
};

/// Runs the work of a routine. True when it came to its end. See the head of this file.
template <class Work>
bool Guard(const Routine& oRoutine, Work&& oWork) {
  GuardScope oScope(oRoutine);
  try {
    std::forward<Work>(oWork)(oScope);
    return true;
  } catch (...) {
    oScope.EndOfRoutine();
    return false;
  }
}
