// In order: the settings of a printer, fonts, the document, the device that joins them.
#include "GdiDevice.h"

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <vector>

#include "Failure.h"
#include "WindowsNames.h"

namespace Paper {

namespace {

constexpr int TwipsPerInch = 1440, TwipsPerPoint = 20;

std::wstring Wide(TextView text) {
  return {text.begin(), text.end()};
}

[[noreturn]] void Fail(TextView printer, TextView why) {
  throw Failure(482, FailureText(482) + u": " + Text(printer) + u" " + Text(why));
}

[[noreturn]] void FailByNumber(TextView printer) {
  const Text number = FromUtf8(std::to_string(GetLastError()));
  Fail(printer, u"took no document (Windows error " + number + u"); look after the printer");
}

/// The printer's own settings with the paper of a sheet; empty when it doesn't tell.
std::vector<std::byte> SettingsOf(TextView printer, const Sheet* sheet) {
  std::wstring name = Wide(printer);
  HANDLE handle = nullptr;
  if (!OpenPrinterW(name.data(), &handle, nullptr)) return {};
  const LONG size = DocumentPropertiesW(nullptr, handle, name.data(), nullptr, nullptr, 0);
  std::vector<std::byte> settings(size > 0 ? static_cast<std::size_t>(size) : 0);
  auto* const mode = reinterpret_cast<DEVMODEW*>(settings.data());
  LONG done = size > 0
                  ? DocumentPropertiesW(nullptr, handle, name.data(), mode, nullptr, DM_OUT_BUFFER)
                  : -1;
  if (done == IDOK && sheet != nullptr) {
    mode->dmFields |= DM_PAPERSIZE | DM_ORIENTATION;
    mode->dmPaperSize = static_cast<short>(sheet->ePaperSize);
    mode->dmOrientation = static_cast<short>(sheet->eOrientation);
    done =
        DocumentPropertiesW(nullptr, handle, name.data(), mode, mode, DM_IN_BUFFER | DM_OUT_BUFFER);
  }
  ClosePrinter(handle);
  if (done != IDOK) settings.clear();
  return settings;
}

const DEVMODEW* ModeIn(const std::vector<std::byte>& settings) {
  return settings.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(settings.data());
}

struct DropContext {
  void operator()(HDC context) const { DeleteDC(context); }
};
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, DropContext>;

struct DropFont {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DropFont>;

/// "Arial, Helvetica" is a list by preference; the system looks for one name and replaces it
/// itself.
std::wstring FirstFamily(TextView names) {
  return Wide(Trim(names.substr(0, names.find(u','))));
}

std::int32_t TwipsOf(int pixels, int perInch) {
  return perInch > 0
             ? static_cast<std::int32_t>(std::lround(pixels * double{TwipsPerInch} / perInch))
             : 0;
}

}  // namespace

/// Fonts whose unit is the twip. On a context in which a pixel is a twip, they measure as finely as
/// any printer draws.
class GdiDevice::Fonts {
 public:
  Fonts() : mContext(CreateCompatibleDC(nullptr)) {}

  HFONT Get(const PrintFont& font) {
    Font& made = mFonts[{font.sName, font.dSize, font.bBold}];
    if (!made) {
      made.reset(CreateFontW(-static_cast<int>(std::lround(font.dSize * TwipsPerPoint)), 0, 0, 0,
                             font.bBold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                             OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, PROOF_QUALITY,
                             DEFAULT_PITCH | FF_DONTCARE, FirstFamily(font.sName).c_str()));
    }
    return made.get();
  }

  double WidthOf(TextView line, const PrintFont& font) {
    SelectObject(mContext.get(), Get(font));
    SIZE size = {};
    const std::wstring wide = Wide(line);
    GetTextExtentPoint32W(mContext.get(), wide.data(), static_cast<int>(wide.size()), &size);
    return size.cx;
  }

  double HeightOf(const PrintFont& font) {
    SelectObject(mContext.get(), Get(font));
    TEXTMETRICW metrics = {};
    GetTextMetricsW(mContext.get(), &metrics);
    return metrics.tmHeight;
  }

 private:
  std::map<std::tuple<Text, double, bool>, Font> mFonts;
  Context mContext;
};

class GdiDevice::Job {
 public:
  Job(TextView printer, TextView title, const std::string& output, const Sheet& sheet)
      : mPrinter(printer) {
    mContext.reset(CreateDCW(L"WINSPOOL", Wide(printer).c_str(), nullptr,
                             ModeIn(SettingsOf(printer, &sheet))));
    if (!mContext) FailByNumber(printer);
    const std::wstring name = Wide(title),
                       file = output.empty() ? std::wstring() : WideName(output);
    DOCINFOW info = {};
    info.cbSize = sizeof info;
    info.lpszDocName = name.c_str();
    info.lpszOutput = file.empty() ? nullptr : file.c_str();
    mNumber = StartDocW(mContext.get(), &info);
    if (mNumber <= 0) FailByNumber(printer);
    Begin();
  }
  ~Job() {
    if (!mIsEnded) AbortDoc(mContext.get());
  }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  void NextPage(const Sheet& sheet) {
    if (EndPage(mContext.get()) <= 0) FailByNumber(mPrinter);
    if (const auto settings = SettingsOf(mPrinter, &sheet); !settings.empty())
      ResetDCW(mContext.get(), ModeIn(settings));
    Begin();
  }

  void Draw(double x, double y, TextView line, HFONT font) {
    const std::wstring wide = Wide(line);
    SelectObject(mContext.get(), font);
    TextOutW(mContext.get(), static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)),
             wide.data(), static_cast<int>(wide.size()));
  }

  void Finish() {
    if (EndPage(mContext.get()) <= 0 || EndDoc(mContext.get()) <= 0) FailByNumber(mPrinter);
    mIsEnded = true;
  }

  /// The printer works on after the document was handed over.
  void WaitUntilPrinted() const {
    constexpr int Tries = 600;
    std::wstring name = Wide(mPrinter);
    HANDLE handle = nullptr;
    if (!OpenPrinterW(name.data(), &handle, nullptr)) return;
    for (int i = 0; i < Tries; ++i) {
      DWORD needed = 0;
      const bool isThere = GetJobW(handle, static_cast<DWORD>(mNumber), 1, nullptr, 0, &needed) ||
                           GetLastError() == ERROR_INSUFFICIENT_BUFFER;
      if (!isThere) break;
      Sleep(100);
    }
    ClosePrinter(handle);
  }

 private:
  /// Units are twips from the corner of the paper, whatever the printer's own are.
  void Begin() {
    HDC context = mContext.get();
    if (::StartPage(context) <= 0) FailByNumber(mPrinter);
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowExtEx(context, TwipsPerInch, TwipsPerInch, nullptr);
    SetViewportExtEx(context, GetDeviceCaps(context, LOGPIXELSX),
                     GetDeviceCaps(context, LOGPIXELSY), nullptr);
    SetViewportOrgEx(context, -GetDeviceCaps(context, PHYSICALOFFSETX),
                     -GetDeviceCaps(context, PHYSICALOFFSETY), nullptr);
    SetBkMode(context, TRANSPARENT);
  }

  Text mPrinter;
  Context mContext;
  int mNumber = 0;
  bool mIsEnded = false;
};

GdiDevice::GdiDevice(Text sPrinter, std::string sOutput)
    : mPrinter(std::move(sPrinter)),
      mOutput(std::move(sOutput)),
      mFonts(std::make_unique<Fonts>()) {}

GdiDevice::~GdiDevice() = default;

std::int32_t GdiDevice::LoadedPaper() {
  const std::vector<std::byte> settings = SettingsOf(mPrinter, nullptr);
  if (const DEVMODEW* mode = ModeIn(settings); mode && (mode->dmFields & DM_PAPERSIZE) != 0) {
    const auto forms = PaperForms();
    if (std::any_of(forms.begin(), forms.end(),
                    [&](const PaperForm& form) { return form.eSize == mode->dmPaperSize; }))
      return mode->dmPaperSize;
  }
  return UsualPaperSize();
}

Strips GdiDevice::Unprintable(const Sheet& oSheet) {
  const std::vector<std::byte> settings = SettingsOf(mPrinter, &oSheet);
  const Context context(CreateICW(L"WINSPOOL", Wide(mPrinter).c_str(), nullptr, ModeIn(settings)));
  if (!context) return {};
  const auto of = [&](int item) { return GetDeviceCaps(context.get(), item); };
  const int left = of(PHYSICALOFFSETX), top = of(PHYSICALOFFSETY);
  const int right = of(PHYSICALWIDTH) - of(HORZRES) - left;
  const int bottom = of(PHYSICALHEIGHT) - of(VERTRES) - top;
  return {TwipsOf(left, of(LOGPIXELSX)), TwipsOf(top, of(LOGPIXELSY)),
          TwipsOf(right, of(LOGPIXELSX)), TwipsOf(bottom, of(LOGPIXELSY))};
}

double GdiDevice::LineWidth(TextView sLine, const PrintFont& oFont) {
  return mFonts->WidthOf(sLine, oFont);
}

double GdiDevice::LineHeight(const PrintFont& oFont) {
  return mFonts->HeightOf(oFont);
}

void GdiDevice::StartDocument(TextView sTitle) {
  mJob.reset();
  mTitle = sTitle;
}

void GdiDevice::StartPage(const Sheet& oSheet) {
  if (mJob) {
    mJob->NextPage(oSheet);
  } else {
    mJob = std::make_unique<Job>(mPrinter, mTitle, mOutput, oSheet);
  }
}

void GdiDevice::DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) {
  mJob->Draw(dX, dY, sLine, mFonts->Get(oFont));
}

void GdiDevice::EndDocument() {
  const std::unique_ptr<Job> job = std::move(mJob);
  if (!job) return;
  job->Finish();
  if (!mOutput.empty()) job->WaitUntilPrinted();
}

void GdiDevice::KillDocument() noexcept {
  mJob.reset();
}

}  // namespace Paper
