#include "CXPrint.h"
#include "Failure.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "ReportSetup.h"
#include "SortedList.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace Reports {

namespace {

constexpr float HalfLine = 0.5f;
constexpr std::size_t ColumnCount = 9;
/// A component begins on a new page unless this many lines still fit; a part of the reports'
/// layout.
constexpr std::int16_t LinesOfComponent = 10;

const CXLookup& Words(const std::unique_ptr<CXLookup>& oLookup) {
  if (!oLookup) throw Failure(91);
  return *oLookup;
}

class Settings {
 public:
  Settings(GuardScope& oScope, CIDEHandler& oHandler, Paper::Printer& oPrinter)
      : moScope(oScope), moHandler(oHandler), moPrinter(oPrinter), moPrint(oPrinter) {}

  void Print(const Widths& alProcWidth, ProjectHandle hProject, ComponentHandle hComponent) {
    const SteppedProject oProject(moScope, *moHandler.Project(hProject).oProject);
    const Text sName = oProject.Name();
    const auto nType = oProject.Type();
    SetUp(moPrint, moPrinter, u"Tarvane Quillon 3.0", SettingsName, sName);
    Title(sName + u" - " + MQuillon::VBProjectTypeName(nType));
    moPrint.SetColumns(Positions(alProcWidth, ColumnCount));
    if (hComponent) {
      moHandler.LoadComponent(hComponent);
      Component(hComponent);
    } else {
      AllComponents(hProject);
    }
    moPrint.Finish();
  }

 private:
  void Title(TextView sTitle) {
    moPrint.SpaceAfter = HalfLine;
    moPrint.FontBold = true;
    moPrint.PrintLine(sTitle);
  }

  void AllComponents(ProjectHandle hProject) {
    if (!moHandler.Project(hProject).lFirstComponent) return;
    moHandler.ForceLoadProjectComponents(hProject);
    EachComponent(moHandler, hProject, [&](ComponentHandle h) {
      moPrint.CheckPage(LinesOfComponent);
      Component(h);
    });
  }

  void Component(ComponentHandle hComponent) {
    const ComponentRecord& oRecord = moHandler.Component(hComponent);
    const auto nType = SteppedComponent(moScope, *oRecord.oComponent).Type();
    Title(oRecord.sName + u" - " + MQuillon::InstancingTypeName(oRecord.lInstancing) + u" " +
          MQuillon::VBComponentTypeName(nType));
    moPrint.PrintColumns({u"Procedure", u"Type", u"Scope", u"Template", u"Locked", u"Boundary",
                          u"Severity", u"Retry", u"Trace"});
    moPrint.FontBold = false;
    moPrint.SpaceAfter = 0;
    SortedList oList;
    for (const auto h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure)) {
      oList.AddItem(moHandler.ProcName(h), h.Number());
    }
    for (const auto lNumber : oList.ItemData()) {
      const ProcedureHandle h(lNumber);
      Procedure(moHandler.Procedure(h), moHandler.ProcName(h));
    }
    moPrint.PrintBlank();
  }

  void Procedure(const ProcedureRecord& oRecord, const Text& sName) {
    const CProcSettings& o = oRecord.oCurrent;
    const Text sScope = MQuillon::ScopeTypeName(moScope.Require([&] { return ScopeOf(oRecord); }));
    moPrint.PrintColumns(
        {sName, Text(oRecord.sProcType), sScope, Text(o.sTemplate()),
         Words(MQuillon::oLookupLocked).LookupDisplayName(MQuillon::ToNumber(o.eLocked())),
         Words(MQuillon::oLookupBoundary).LookupItem(MQuillon::ToNumber(o.eBoundary())),
         Words(MQuillon::oLookupSeverity).LookupItem(MQuillon::ToNumber(o.eSeverity())),
         Words(MQuillon::oLookupRetry).LookupItem(MQuillon::ToNumber(o.eRetry())),
         Words(MQuillon::oLookupTrace).LookupDisplayName(MQuillon::ToNumber(o.eTrace()))});
  }

  GuardScope& moScope;
  CIDEHandler& moHandler;
  Paper::Printer& moPrinter;
  CXPrint moPrint;
};

}  // namespace

void PrintSettings(CIDEHandler& oHandler, Paper::Printer& oPrinter, const Widths& alProcWidth,
                   ProjectHandle hProject, ComponentHandle hComponent) {
  // Calls of the printer aren't steps, because repeating one would print a part of a page twice.
  Guard(Named(u"PrintSettings"), [&](GuardScope& oScope) {
    oPrinter.SetScaleMode(Paper::ScaleTwips);
    Settings(oScope, oHandler, oPrinter).Print(alProcWidth, hProject, hComponent);
  });
}

}  // namespace Reports
