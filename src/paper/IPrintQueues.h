// The print service of the machine: its queues, and documents handed to them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "IPrintDevice.h"
#include "Sheet.h"
#include "Text.h"

namespace Paper {

struct PrintQueue {
  std::string sName;      ///< as the service knows it
  bool bDefault = false;  ///< the user's or the system's choice
};

class IPrintQueues {
 public:
  virtual ~IPrintQueues() = default;
  /// Empty without a print service.
  virtual std::vector<PrintQueue> List() = 0;
  /// The size that is loaded by default; 0 when the queue doesn't tell or it isn't among ours.
  virtual std::int32_t PaperSizeOf(const std::string& sQueue) = 0;
  /// What the queue's device can't print on, of upright paper.
  virtual Strips StripsOf(const std::string& sQueue, std::int32_t ePaperSize) = 0;
  /// Hands a PDF file to the queue, which has its own copy when this returns. Failure 482 with the
  /// queue's name and the service's reason.
  virtual void Submit(const std::string& sQueue, const std::string& sFile, TextView sTitle,
                      std::int32_t ePaperSize) = 0;
  /// What prints on a queue; this object outlives it. A QueueDevice, and on Windows one that draws
  /// on the printer, which takes no documents there.
  virtual std::unique_ptr<IPrintDevice> DeviceOf(const std::string& sQueue);
};

/// CUPS, at the server that the user's settings name; on Windows the user's printers.
IPrintQueues& SystemPrintQueues();

}  // namespace Paper
