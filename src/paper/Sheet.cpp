#include "Sheet.h"

#include <algorithm>
#include <array>

#include "Failure.h"

namespace Paper {

namespace {

constexpr std::array Forms = {
    PaperForm{PaperLetter, u"Letter", "na_letter_8.5x11in", 12240, 15840},
    PaperForm{PaperTabloid, u"Tabloid", "na_ledger_11x17in", 15840, 24480},
    PaperForm{PaperLegal, u"Legal", "na_legal_8.5x14in", 12240, 20160},
    PaperForm{PaperExecutive, u"Executive", "na_executive_7.25x10.5in", 10440, 15120},
    PaperForm{PaperA3, u"A3", "iso_a3_297x420mm", 16838, 23811},
    PaperForm{PaperA4, u"A4", "iso_a4_210x297mm", 11906, 16838},
    PaperForm{PaperA5, u"A5", "iso_a5_148x210mm", 8391, 11906},
    PaperForm{PaperB4, u"B4", "jis_b4_257x364mm", 14570, 20636},
    PaperForm{PaperB5, u"B5", "jis_b5_182x257mm", 10318, 14570},
};

}  // namespace

std::span<const PaperForm> PaperForms() {
  return Forms;
}

const PaperForm& PaperFormOf(std::int32_t eSize) {
  const auto oForm = std::find_if(Forms.begin(), Forms.end(),
                                  [&](const PaperForm& o) { return o.eSize == eSize; });
  if (oForm == Forms.end()) throw Failure(380);
  return *oForm;
}

Sheet MakeSheet(std::int32_t ePaperSize, std::int32_t eOrientation) {
  const PaperForm& oForm = PaperFormOf(ePaperSize);
  if (eOrientation != Portrait && eOrientation != Landscape) throw Failure(380);
  if (eOrientation == Portrait) return {ePaperSize, eOrientation, oForm.lWidth, oForm.lHeight};
  return {ePaperSize, eOrientation, oForm.lHeight, oForm.lWidth};
}

}  // namespace Paper
