#include "PageSetupDialog.h"

#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>

#include "NativeText.h"

namespace Forms {

namespace {

constexpr std::int32_t Across = 2;

/// A sheet whose size is a round number of millimetres: the A and B formats, by their numbers.
bool IsMetricSheet(std::int32_t lPaperSize) {
  return lPaperSize >= 8 && lPaperSize <= 13;
}
/// Lengths are shown in millimetres; in inches otherwise.
bool IsMetric(const PageDialog& o) {
  return o.eUnit == MarginUnit::HundredthsOfMillimeter || IsMetricSheet(o.lPaperSize);
}
/// How many of the dialog's units make one of the shown ones.
double PerUnit(const PageDialog& o) {
  if (o.eUnit == MarginUnit::HundredthsOfMillimeter) return 100;
  return IsMetric(o) ? 1000 / 25.4 : 1000;
}

wxStaticBoxSizer* NewBox(wxWindow& oDialog, const char* psCaption, bool bDisabled, int nDirection) {
  auto* const po = new wxStaticBoxSizer(nDirection, &oDialog, psCaption);
  po->GetStaticBox()->Enable(!bDisabled);
  return po;
}

/// The label comes first, so that its access key leads to the field.
template <class Field, class... Rest>
Field* NewLabelled(wxSizer& oSizer, wxWindow* poBox, const char* psLabel, Rest&&... oRest) {
  oSizer.Add(new wxStaticText(poBox, wxID_ANY, psLabel),
             wxSizerFlags().CentreVertical().Border(wxALL, 3));
  auto* const po = new Field(poBox, wxID_ANY, std::forward<Rest>(oRest)...);
  oSizer.Add(po, wxSizerFlags(1).CentreVertical().Border(wxALL, 3));
  return po;
}

}  // namespace

PageSetupDialog::PageSetupDialog(wxWindow* poOwner, const PageDialog& o)
    : wxDialog(poOwner, wxID_ANY, "Page Setup") {
  auto* const poAll = new wxBoxSizer(wxVERTICAL);
  const auto oFlags = wxSizerFlags().Expand().Border(wxALL, 6);
  poAll->Add(PaperBox(o), oFlags);
  auto* const poMiddle = new wxBoxSizer(wxHORIZONTAL);
  poMiddle->Add(OrientationBox(o), wxSizerFlags(oFlags).Proportion(1));
  poMiddle->Add(MarginBox(o), wxSizerFlags(oFlags).Proportion(2));
  poAll->Add(poMiddle, wxSizerFlags().Expand());
  poAll->Add(PrinterBox(o), oFlags);
  poAll->Add(CreateButtonSizer(wxOK | wxCANCEL), oFlags);
  SetSizerAndFit(poAll);
  CentreOnParent();
}

wxSizer* PageSetupDialog::PaperBox(const PageDialog& o) {
  auto* const poBox = NewBox(*this, "Paper", o.bDisablePaper, wxHORIZONTAL);
  mpoPaper = NewLabelled<wxChoice>(*poBox, poBox->GetStaticBox(), "&Size:");
  for (const PaperChoice& oPaper : o.aoPaper) {
    const int nRow = mpoPaper->Append(ToWx(oPaper.sName));
    if (oPaper.lSize == o.lPaperSize) mpoPaper->SetSelection(nRow);
  }
  return poBox;
}

wxSizer* PageSetupDialog::OrientationBox(const PageDialog& o) {
  auto* const poBox = NewBox(*this, "Orientation", o.bDisableOrientation, wxVERTICAL);
  wxWindow* const po = poBox->GetStaticBox();
  auto* const poUpright =
      new wxRadioButton(po, wxID_ANY, "&Portrait", wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
  mpoAcross = new wxRadioButton(po, wxID_ANY, "L&andscape");
  (o.lOrientation == Across ? mpoAcross : poUpright)->SetValue(true);
  poBox->Add(poUpright, wxSizerFlags().Border(wxALL, 3));
  poBox->Add(mpoAcross, wxSizerFlags().Border(wxALL, 3));
  return poBox;
}

wxSizer* PageSetupDialog::MarginBox(const PageDialog& o) {
  auto* const poBox = NewBox(*this, IsMetric(o) ? "Margins (millimeters)" : "Margins (inches)",
                             o.bDisableMargins, wxVERTICAL);
  auto* const poGrid = new wxFlexGridSizer(4, 0, 0);
  const std::pair<const char*, std::int32_t PageDialog::*> aoRow[] = {
      {"&Left:", &PageDialog::lLeft},
      {"&Right:", &PageDialog::lRight},
      {"&Top:", &PageDialog::lTop},
      {"&Bottom:", &PageDialog::lBottom}};
  for (const auto& [psLabel, plLength] : aoRow) {
    const double dNow = o.*plLength / PerUnit(o);
    // Limits of the field (choices: about a metre, larger than any sheet). A stored margin beyond
    // them isn't changed.
    const double dMost = std::max(dNow, IsMetric(o) ? 999.0 : 40.0);
    auto* const po = NewLabelled<wxSpinCtrlDouble>(
        *poGrid, poBox->GetStaticBox(), psLabel, wxString(), wxDefaultPosition, wxDefaultSize,
        wxSP_ARROW_KEYS, std::min(dNow, 0.0), dMost, dNow, IsMetric(o) ? 1 : 0.1);
    po->SetDigits(IsMetric(o) ? 2 : 3);
    moMargins.push_back({plLength, po});
  }
  poBox->Add(poGrid, wxSizerFlags().Expand());
  return poBox;
}

wxSizer* PageSetupDialog::PrinterBox(const PageDialog& o) {
  auto* const poBox = NewBox(*this, "Printer", o.bDisablePrinter, wxHORIZONTAL);
  mpoPrinter = NewLabelled<wxChoice>(*poBox, poBox->GetStaticBox(), "&Name:");
  for (const Text& sDevice : o.asDevice) {
    const int nRow = mpoPrinter->Append(ToWx(sDevice));
    if (sDevice == o.sDeviceName) mpoPrinter->SetSelection(nRow);
  }
  return poBox;
}

void PageSetupDialog::Take(PageDialog& o) const {
  const double dPerUnit = PerUnit(o);  // of the sheet that the fields were made for
  const int nPaper = mpoPaper->GetSelection(), nPrinter = mpoPrinter->GetSelection();
  if (nPaper >= 0) o.lPaperSize = o.aoPaper[static_cast<std::size_t>(nPaper)].lSize;
  if (nPrinter >= 0) o.sDeviceName = o.asDevice[static_cast<std::size_t>(nPrinter)];
  o.lOrientation = mpoAcross->GetValue() ? Across : 1;
  for (const Margin& oMargin : moMargins)
    o.*oMargin.plLength =
        static_cast<std::int32_t>(std::lround(oMargin.poField->GetValue() * dPerUnit));
}

}  // namespace Forms
