#include "Printers.h"

#include <algorithm>

#include "Failure.h"

namespace Paper {

namespace {

constexpr std::size_t NameLengthOfDialogs = 31;

TextView DialogName(TextView sDeviceName) {
  return sDeviceName.substr(0, NameLengthOfDialogs);
}

}  // namespace

Printers::Printers(AskFileName fnAsk) : Printers(std::move(fnAsk), SystemPrintQueues()) {}

Printers::Printers(AskFileName fnAsk, IPrintQueues& oQueues)
    : mfnAsk(std::move(fnAsk)), moQueues(oQueues) {}

void Printers::Fill() {
  if (!moEntries.empty()) return;
  const std::vector<PrintQueue> oQueues = moQueues.List();
  const auto oDefault = std::find_if(oQueues.begin(), oQueues.end(),
                                     [](const PrintQueue& oQueue) { return oQueue.bDefault; });
  mlCurrent = oDefault == oQueues.end() ? 0 : static_cast<std::size_t>(oDefault - oQueues.begin());
  for (const PrintQueue& oQueue : oQueues) {
    moEntries.push_back({moQueues.DeviceOf(oQueue.sName), {}});
  }
  moEntries.push_back({std::make_unique<FileDevice>(mfnAsk), {}});
}

std::int32_t Printers::Count() {
  Fill();
  return static_cast<std::int32_t>(moEntries.size());
}

Printer& Printers::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  Entry& oEntry = moEntries[static_cast<std::size_t>(lIndex) - 1];
  if (!oEntry.oPrinter) oEntry.oPrinter.emplace(*oEntry.oDevice);
  return *oEntry.oPrinter;
}

Text Printers::DeviceName(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return moEntries[static_cast<std::size_t>(lIndex) - 1].oDevice->DeviceName();
}

Printer& Printers::Current() {
  Fill();
  return Item(static_cast<std::int32_t>(mlCurrent) + 1);
}

bool Printers::SetCurrent(TextView sDeviceName) {
  Fill();
  const auto oEntry = std::find_if(moEntries.begin(), moEntries.end(), [&](const Entry& o) {
    return DialogName(o.oDevice->DeviceName()) == DialogName(sDeviceName);
  });
  if (oEntry == moEntries.end()) return false;
  mlCurrent = static_cast<std::size_t>(oEntry - moEntries.begin());
  return true;
}

void Printers::Refresh() {
  Fill();
  const Text sCurrent = moEntries[mlCurrent].oDevice->DeviceName();
  moEntries.clear();
  SetCurrent(sCurrent);
}

}  // namespace Paper
