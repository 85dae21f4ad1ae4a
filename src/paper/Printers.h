// The printers collection: the print queues of this machine and, last, "PDF file", which is always
// there. One of them is the current printer, at first the system's default queue.
//
//   Printers oPrinters([&](TextView sTitle) { return AskForFile(sTitle); });
//   if (oPrinters.Count() > 0) PrintProjects(..., oPrinters.Current(), ...);
//
// The queues are looked up at the first question and kept; no print service is no failure.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "DocumentFiles.h"
#include "Printer.h"

namespace Paper {

class Printers {
 public:
  /// The system's own queues.
  explicit Printers(AskFileName fnAsk);
  /// oQueues outlives this object.
  Printers(AskFileName fnAsk, IPrintQueues& oQueues);
  ~Printers() = default;
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;

  /// 1 or more.
  std::int32_t Count();
  /// lIndex from 1; Failure 9 out of range.
  Printer& Item(std::int32_t lIndex);
  /// Doesn't ask the printer for its paper, which may be slow, so that names can be listed quickly.
  Text DeviceName(std::int32_t lIndex);
  Printer& Current();
  /// Makes the first printer the current one whose name agrees in its first 31 characters: page
  /// dialogs of Windows report no more (a field of 32 units with its end). False: there is none,
  /// and the current one stays.
  bool SetCurrent(TextView sDeviceName);
  /// Looks the queues up again; the current printer stays by its name where it is still there.
  /// Not while a document is open: every Printer& that was given is invalid afterwards.
  void Refresh();

 private:
  /// The printer is made when it is asked for: a queue tells of its paper only then, which takes a
  /// while over a network.
  struct Entry {
    std::unique_ptr<IPrintDevice> oDevice;
    std::optional<Printer> oPrinter;
  };
  void Fill();

  AskFileName mfnAsk;
  IPrintQueues& moQueues;
  std::vector<Entry> moEntries;
  std::size_t mlCurrent = 0;
};

}  // namespace Paper
