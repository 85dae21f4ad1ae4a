#include "CXPrint.h"
#include "Failure.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "MXDate.h"
#include "MXFile.h"
#include "ReportSetup.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace Reports {

namespace {

constexpr TextView NotAvailable = u"n/a";
constexpr float HalfLine = 0.5f;
constexpr std::size_t ColumnCount = 6;
constexpr std::int32_t FileNameColumn = 5;

struct FileState {
  Text sReadOnly, sModified, sFileName;
};

class Summary {
 public:
  Summary(GuardScope& oScope, CIDEHandler& oHandler, Paper::Printer& oPrinter)
      : moScope(oScope), moHandler(oHandler), moPrinter(oPrinter), moPrint(oPrinter) {}

  void Print(const Widths& alModWidth, ProjectHandle hProject) {
    const SteppedProject oProject(moScope, *moHandler.Project(hProject).oProject);
    const Text sName = oProject.Name();
    SetUp(moPrint, moPrinter, u"Tarvane Quillon 3.1", SummaryName, sName);
    moPrint.SetColumns(Positions(alModWidth, ColumnCount));
    Heading({u"Project", u"Type", u"", u"ReadOnly", u"Modified", u"FileName"});
    moPrint.SetColumnIsPath(FileNameColumn, true);
    const auto nType = oProject.Type();
    Row({sName, MQuillon::VBProjectTypeName(nType), u""}, StateOf(oProject.FileName()));
    Heading({u"Module", u"Type", u"Instancing", u"ReadOnly", u"Modified", u"FileName"});
    EachComponent(moHandler, hProject, [&](ComponentHandle h) { Component(h); });
    if (mMissing > 0)
      moPrint.PrintLine(ToText(mMissing) + u" File(s) without a date: missing on disk");
    moPrint.Finish();
  }

 private:
  void Heading(const std::vector<Text>& asTitle) {
    moPrint.SpaceAfter = HalfLine;
    moPrint.FontBold = true;
    moPrint.PrintColumns(asTitle);
    moPrint.FontBold = false;
  }

  FileState StateOf(const Text& sFile) {
    if (sFile.empty()) return {Text(NotAvailable), Text(NotAvailable), Text(NotAvailable)};
    const auto modified = MXFile::FileModified(sFile);
    if (!modified) ++mMissing;
    return {MXFile::FileReadOnly(sFile) ? u"ReadOnly" : u"",
            modified ? MXDate::FileTime(*modified) : Text(), sFile};
  }

  void Row(std::vector<Text> asValue, const FileState& oState) {
    asValue.insert(asValue.end(), {oState.sReadOnly, oState.sModified, oState.sFileName});
    moPrint.PrintColumns(asValue);
  }

  void Component(ComponentHandle hComponent) {
    const ComponentRecord& oRecord = moHandler.Component(hComponent);
    const SteppedComponent oComponent(moScope, *oRecord.oComponent);
    const auto nType = oComponent.Type();
    const auto nFiles = oComponent.FileCount();
    const std::vector<Text> asName{oRecord.sName, MQuillon::VBComponentTypeName(nType),
                                   MQuillon::InstancingTypeName(oRecord.lInstancing)};
    moPrint.SpaceAfter = HalfLine;
    if (nFiles <= 0) return Row(asName, {});
    for (std::int32_t i = 1; i <= nFiles; ++i) {
      moPrint.SpaceAfter = i == nFiles ? HalfLine : 0;
      FileState oState = StateOf(oComponent.FileNames(i));
      if (i == 1 && !oRecord.readOnlyReason.empty()) oState.sReadOnly = u"ReadOnly";
      Row(i == 1 ? asName : std::vector<Text>(asName.size()), oState);
    }
  }

  GuardScope& moScope;
  CIDEHandler& moHandler;
  Paper::Printer& moPrinter;
  CXPrint moPrint;
  std::int32_t mMissing = 0;
};

}  // namespace

void PrintProjects(CIDEHandler& oHandler, Paper::Printer& oPrinter, const Widths& alModWidth,
                   ProjectHandle hProject) {
  // Calls of the printer aren't steps, because repeating one would print a part of a page twice.
  Guard(Named(u"PrintProjects"), [&](GuardScope& oScope) {
    oPrinter.SetScaleMode(Paper::ScaleTwips);
    Summary(oScope, oHandler, oPrinter).Print(alModWidth, hProject);
  });
}

}  // namespace Reports
