// Where a finished PDF document goes: into a file that a person
// named, and into a print queue.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "IPrintQueues.h"
#include "PdfDevice.h"

namespace Paper {

/// Writes a finished document to sPath so that an old file there is whole until the new one is
/// complete; what isn't an ordinary file, such as a pipe, is written straight. Failures as those of
/// AtomicFile::Replace, with the path.
void WriteDocument(const std::string& sPath, const std::string& sBytes);

/// Asked when a document begins: the path to write, or nothing when the person changed their mind;
/// the document is dropped then, which is no failure.
using AskFileName = std::function<std::optional<Text>(TextView sTitle)>;

/// "PDF file".
class FileDevice : public PdfDevice {
 public:
  /// Without a function to ask, every document is dropped.
  explicit FileDevice(AskFileName fnAsk);
  void StartDocument(TextView sTitle) override;

 private:
  AskFileName mfnAsk;
  std::optional<Text> moPath;
};

/// A print queue of the machine.
class QueueDevice : public PdfDevice {
 public:
  /// oQueues outlives this object.
  QueueDevice(IPrintQueues& oQueues, std::string sQueue);
  Text DeviceName() const override { return FromUtf8(msQueue); }
  std::int32_t LoadedPaper() override;
  Strips Unprintable(const Sheet& oSheet) override;
  void StartDocument(TextView sTitle) override;
  void StartPage(const Sheet& oSheet) override;

 private:
  void Submit(const std::string& sBytes);

  IPrintQueues& moQueues;
  std::string msQueue;
  Text msTitle;
  std::int32_t mePaperSize = 0;
};

}  // namespace Paper
