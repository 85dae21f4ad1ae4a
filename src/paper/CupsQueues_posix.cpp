#include <cups/cups.h>

#include <cstdlib>
#include <memory>

#include "Failure.h"
#include "IPrintQueues.h"

namespace Paper {

namespace {

// A quarter of an inch on each side, for queues that don't report their margins: an assumption.
constexpr Strips UsualStrips{360, 360, 360, 360};

/// The service counts in hundredths of a millimetre.
std::int32_t Twips(int nHundredths) {
  return (nHundredths * 1440 + 1270) / 2540;
}
int Hundredths(std::int32_t lTwips) {
  return (lTwips * 2540 + 720) / 1440;
}

/// A queue, with the user's saved options: "name" or "name/instance".
class Destination {
 public:
  explicit Destination(const std::string& sQueue) {
    const std::size_t lSlash = sQueue.find('/');
    const std::string sInstance = lSlash == std::string::npos ? "" : sQueue.substr(lSlash + 1);
    moDestination.reset(cupsGetNamedDest(CUPS_HTTP_DEFAULT, sQueue.substr(0, lSlash).c_str(),
                                         sInstance.empty() ? nullptr : sInstance.c_str()));
    if (!moDestination) return;
    moInfo.reset(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, moDestination.get()));
  }
  cups_dest_t* Get() const { return moDestination.get(); }

  bool DefaultMedia(cups_size_t& oSize) const {
    return moInfo && cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, Get(), moInfo.get(), 0, &oSize);
  }
  bool MediaOf(const PaperForm& oForm, cups_size_t& oSize) const {
    return moInfo &&
           cupsGetDestMediaBySize(CUPS_HTTP_DEFAULT, Get(), moInfo.get(), Hundredths(oForm.lWidth),
                                  Hundredths(oForm.lHeight), 0, &oSize);
  }

 private:
  struct Free {
    void operator()(cups_dest_t* p) const { cupsFreeDests(1, p); }
    void operator()(cups_dinfo_t* p) const { cupsFreeDestInfo(p); }
  };
  std::unique_ptr<cups_dest_t, Free> moDestination;
  std::unique_ptr<cups_dinfo_t, Free> moInfo;
};

class CupsQueues : public IPrintQueues {
 public:
  std::vector<PrintQueue> List() override {
    cups_dest_t* poDestinations = nullptr;
    const int nCount = cupsGetDests2(CUPS_HTTP_DEFAULT, &poDestinations);
    std::vector<PrintQueue> oQueues;
    for (int i = 0; i < nCount; ++i) {
      const cups_dest_t& o = poDestinations[i];
      const std::string sName(o.name);
      oQueues.push_back({o.instance ? sName + '/' + o.instance : sName, o.is_default != 0});
    }
    cupsFreeDests(nCount, poDestinations);
    return oQueues;
  }

  std::int32_t PaperSizeOf(const std::string& sQueue) override {
    cups_size_t oSize;
    if (!Destination(sQueue).DefaultMedia(oSize)) return 0;
    constexpr int Tolerance = 100;  // one millimetre, since queues round their sizes
    for (const PaperForm& oForm : PaperForms()) {
      if (std::abs(Hundredths(oForm.lWidth) - oSize.width) <= Tolerance &&
          std::abs(Hundredths(oForm.lHeight) - oSize.length) <= Tolerance) {
        return oForm.eSize;
      }
    }
    return 0;
  }

  Strips StripsOf(const std::string& sQueue, std::int32_t ePaperSize) override {
    cups_size_t o;
    if (!Destination(sQueue).MediaOf(PaperFormOf(ePaperSize), o)) return UsualStrips;
    return {Twips(o.left), Twips(o.top), Twips(o.right), Twips(o.bottom)};
  }

  void Submit(const std::string& sQueue, const std::string& sFile, TextView sTitle,
              std::int32_t ePaperSize) override {
    const Destination oDestination(sQueue);
    if (!oDestination.Get()) Fail(sQueue, "there is no such printer any more");
    cups_option_t* poOptions = nullptr;
    int nOptions = 0;
    const cups_dest_t& o = *oDestination.Get();
    for (int i = 0; i < o.num_options; ++i) {
      nOptions = cupsAddOption(o.options[i].name, o.options[i].value, nOptions, &poOptions);
    }
    nOptions = cupsAddOption("media", PaperFormOf(ePaperSize).sMediaName, nOptions, &poOptions);
    const int nJob = cupsPrintFile2(CUPS_HTTP_DEFAULT, o.name, sFile.c_str(),
                                    ToUtf8(sTitle).c_str(), nOptions, poOptions);
    cupsFreeOptions(nOptions, poOptions);
    if (nJob == 0) Fail(sQueue, cupsLastErrorString());
  }

 private:
  [[noreturn]] static void Fail(const std::string& sQueue, const char* sReason) {
    throw Failure(482, FailureText(482) + u": " + FromUtf8(sQueue) + u" took no document (" +
                           FromUtf8(sReason) + u")");
  }
};

}  // namespace

IPrintQueues& SystemPrintQueues() {
  static CupsQueues oQueues;
  return oQueues;
}

}  // namespace Paper
