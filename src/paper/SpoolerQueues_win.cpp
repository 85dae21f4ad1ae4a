#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <cstddef>

#include "Failure.h"
#include "GdiDevice.h"
#include "IPrintQueues.h"
#include "PrinterList.h"

namespace Paper {

namespace {

std::string Narrow(const wchar_t* name) {
  const std::wstring_view wide = name;
  return ToUtf8(Text(wide.begin(), wide.end()));
}

std::string DefaultPrinter() {
  wchar_t name[512] = {};
  DWORD size = 512;
  return GetDefaultPrinterW(name, &size) ? Narrow(name) : std::string();
}

std::vector<std::string> PrinterNames() {
  constexpr DWORD Kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, Level = 4;
  DWORD size = 0, count = 0;
  EnumPrintersW(Kinds, nullptr, Level, nullptr, 0, &size, &count);
  std::vector<BYTE> bytes(size);
  if (size == 0 || !EnumPrintersW(Kinds, nullptr, Level, bytes.data(), size, &size, &count))
    return {};
  std::vector<std::string> names;
  const auto* const printers = reinterpret_cast<const PRINTER_INFO_4W*>(bytes.data());
  for (DWORD i = 0; i < count; ++i) names.push_back(Narrow(printers[i].pPrinterName));
  return names;
}

/// Those of Windows. What a document becomes here is drawn on the printer by GdiDevice, which knows
/// its paper as well.
class SpoolerQueues : public IPrintQueues {
 public:
  std::vector<PrintQueue> List() override {
    const std::string usual = DefaultPrinter();
    std::vector<PrintQueue> queues;
    for (std::string& name : PrinterNames()) {
      const bool isDefault = name == usual;
      queues.push_back({std::move(name), isDefault});
    }
    return queues;
  }
  std::int32_t PaperSizeOf(const std::string& queue) override {
    return GdiDevice(FromUtf8(queue)).LoadedPaper();
  }
  Strips StripsOf(const std::string& queue, std::int32_t paperSize) override {
    return GdiDevice(FromUtf8(queue)).Unprintable(MakeSheet(paperSize, Portrait));
  }
  void Submit(const std::string& queue, const std::string&, TextView, std::int32_t) override {
    throw Failure(482, FailureText(482) + u": " + FromUtf8(queue) + u" takes no PDF file");
  }
};

}  // namespace

IPrintQueues& SystemPrintQueues() {
  static SpoolerQueues queues;
  return queues;
}

std::unique_ptr<IPrintDevice> IPrintQueues::DeviceOf(const std::string& sQueue) {
  return std::make_unique<GdiDevice>(FromUtf8(sQueue));
}

std::optional<Text> PdfPrinter() {
  for (const std::string& name : PrinterNames())
    if (name == "Microsoft Print to PDF") return FromUtf8(name);
  return {};
}

}  // namespace Paper
