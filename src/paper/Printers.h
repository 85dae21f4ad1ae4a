// The printers collection: the print queues of this machine and, last, "PDF file", which is always
// there. One of them is the current printer, at first the system's default queue.
//
//   Printers oPrinters([&](TextView sTitle) { return AskForFile(sTitle); });
//   if (oPrinters.Count() > 0) PrintProjects(..., oPrinters.Current(), ...);
//
// The queues are looked up at the first question and kept; no print service is no failure.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "IPrintQueues.h"
#include "Printer.h"

namespace Paper {

/// Asked when a document begins on "PDF file": the path to write, or nothing when the person
/// changed their mind; the document is dropped then, which is no failure.
using AskFileName = std::function<std::optional<Text>(TextView sTitle)>;

class Printers {
 public:
  /// The system's own queues.
  explicit Printers(AskFileName fnAsk);
  /// poQueues outlives this object.
  Printers(AskFileName fnAsk, IPrintQueues& oQueues);
  ~Printers();
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;

  /// 1 or more.
  std::int32_t Count();
  /// lIndex from 1; Failure 9 out of range.
  Printer& Item(std::int32_t lIndex);
  Printer& Current();
  /// Makes the first printer the current one whose name agrees in its first 31 characters, which is
  /// as much as page dialogs tell. False: there is none, and the current one stays.
  bool SetCurrent(TextView sDeviceName);
  /// Looks the queues up again; the current printer stays by its name where it is still there.
  /// Not while a document is open: every Printer& is invalid afterwards.
  void Refresh();

 private:
  struct Entry;
  void Fill();
  void Add(std::unique_ptr<IPrintDevice> poDevice);

  AskFileName mfnAsk;
  IPrintQueues& moQueues;
  std::vector<std::unique_ptr<Entry>> moEntries;
  std::size_t mlCurrent = 0;
};

}  // namespace Paper
