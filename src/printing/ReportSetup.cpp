#include "ReportSetup.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Failure.h"
#include "HandlerGuard.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "SortedList.h"

namespace Reports {

namespace {

/// From thousandths of an inch; limited, because a settings file may hold any number.
std::int32_t Twips(std::int32_t lThousandths) {
  constexpr double TwipsPerThousandth = 1.44;
  constexpr double Largest = std::numeric_limits<std::int32_t>::max() / 4;
  return static_cast<std::int32_t>(
      std::clamp(std::nearbyint(lThousandths * TwipsPerThousandth), -Largest, Largest));
}

}  // namespace

const Widths& DefaultModWidths() {
  static const Widths alWidth{1500, 1500, 1500, 1500, 2000, 4000};
  return alWidth;
}

const Widths& DefaultProcWidths() {
  static const Widths alWidth{2000, 1000, 1000, 1000, 1000, 1000, 1000, 800, 800};
  return alWidth;
}

void SetUp(CXPrint& oPrint, Paper::Printer& oPrinter, TextView sProduct, TextView sReport,
           TextView sProject) {
  oPrinter.SetTitle(Text(sReport) + u" - " + Text(sProject));
  oPrint.SetLeftMargin(Twips(MOptions::lLeftMargin));
  oPrint.SetTopMargin(Twips(MOptions::lTopMargin));
  oPrint.SetRightMargin(Twips(MOptions::lRightMargin));
  oPrint.SetBottomMargin(Twips(MOptions::lBottomMargin));
  oPrint.Header(sProduct, {}, MQuillon::VendorAddress);
  oPrint.Footer(sReport, u"Page &[Page]", u"&[Date] &[Time]");
}

std::vector<std::int32_t> Positions(const Widths& alWidth, std::size_t lCount) {
  // Larger than any page, and small enough that sums don't overflow 32 bits.
  constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max() / 2;
  if (alWidth.size() + 1 < lCount) throw Failure(9);
  std::vector<std::int32_t> alPosition(1, 0);
  for (std::size_t i = 0; i + 1 < lCount; ++i) {
    const std::int64_t lNext = std::int64_t{alPosition.back()} + alWidth[i];
    alPosition.push_back(static_cast<std::int32_t>(std::clamp(lNext, -Largest, Largest)));
  }
  return alPosition;
}

void EachComponent(const CIDEHandler& oHandler, ProjectHandle hProject,
                   const std::function<void(ComponentHandle)>& oVisit) {
  const ProjectRecord& oProject = oHandler.Project(hProject);
  const auto lLastFolder = static_cast<std::int32_t>(MQuillon::asFolderName.size()) - 1;
  for (std::int32_t lFolder = 1; lFolder <= lLastFolder; ++lFolder) {
    SortedList oList;
    for (const auto h : HandleRange(oProject.lFirstComponent, oProject.lLastComponent)) {
      const ComponentRecord& oRecord = oHandler.Component(h);
      if (oRecord.lFolderType == lFolder) oList.AddItem(oRecord.sName, h.Number());
    }
    for (const auto lNumber : oList.ItemData()) oVisit(ComponentHandle(lNumber));
  }
}

}  // namespace Reports
