#include "VBBody.h"

#include <array>
#include <string>

namespace {

// Accents are bytes of code page 1252: \xe9 is e acute, \xe8 e grave, \xf4 o circumflex.
constexpr std::array<std::string_view, 12> asNoun = {"Order",   "Client", "Depot",   "Price",
                                                     "Invoice", "Route",  "Stock",   "Ledger",
                                                     "Carrier", "Batch",  "Voucher", "Season"};
constexpr std::array<std::string_view, 6> asRemark = {
    "' Nothing to do here while the dep\xf4t is closed: see RefreshDepot",
    "' L'entr\xe9pot de Gen\xe8ve compte autrement",
    "' Prices without tax; the invoice adds it",
    "' \"Exit Sub\" would be too early here",
    "' If it's empty, the old value stays",
    "' Kept in step with the report of the season"};

struct Body {
  VBWriter& oWriter;
  std::string_view sExit;
  int lLabels = 0;

  std::string Name(std::string_view sPrefix) {
    return std::string(sPrefix) + std::string(Noun(oWriter.oDice));
  }
  std::string Number(std::uint32_t lSides) { return std::to_string(oWriter.oDice.Roll(lSides)); }
};

void WriteStatements(Body& oBody, std::size_t lLevel, std::size_t lLines);

void WriteSimple(Body& oBody, std::size_t lLevel) {
  VBWriter& oWriter = oBody.oWriter;
  switch (oWriter.oDice.Roll(9)) {
    case 0:
      return oWriter.Line(lLevel, "lCount = lCount + " + oBody.Number(90) + " * lFactor");
    case 1:
      return oWriter.Line(lLevel, oBody.Name("Refresh") + " sName, lCount, bForce");
    case 2:
      return oWriter.Line(lLevel, "sName = \"" + oBody.Name("New ") +
                                      ": \" & sName & \" (l'\xe9t\xe9)\"    ' shown in the list");
    case 3:
      return oWriter.Line(lLevel, asRemark[oWriter.oDice.Roll(asRemark.size())]);
    case 4:
      return oWriter.Line(
          lLevel, "If lCount < " + oBody.Number(9) + " Then Exit " + std::string(oBody.sExit));
    case 5:
      return oWriter.Line(lLevel, "cTotal = cTotal + moList(lIndex)." + oBody.Name("Sum"));
    case 6:
      return oWriter.Line(lLevel, "If bForce Then lCount = 0: sName = \"\" Else lFactor = lCount");
    case 7:
      return oWriter.Line(lLevel, "Debug.Print Format$(Now, \"hh:nn:ss\"); \" " +
                                      oBody.Name("checked ") + "\"; lCount");
    default:
      return oWriter.Line(lLevel, "Set oItem = " + oBody.Name("Find") + "(sName, lCount)");
  }
}

void WriteContinued(Body& oBody, std::size_t lLevel) {
  oBody.oWriter.Line(lLevel, oBody.Name("Save") + " sName, lCount, _");
  oBody.oWriter.Line(lLevel + 2, oBody.Number(40) + " + lFactor, _");
  oBody.oWriter.Line(lLevel + 2, "IIf(bForce, \"oui\", \"non\")");
}

void WriteIf(Body& oBody, std::size_t lLevel, std::size_t lLines) {
  oBody.oWriter.Line(lLevel, "If " + oBody.Name("Is") + "(sName) And lCount > 0 Then");
  WriteStatements(oBody, lLevel + 1, lLines / 2);
  oBody.oWriter.Line(lLevel, "Else");
  WriteStatements(oBody, lLevel + 1, lLines / 2);
  oBody.oWriter.Line(lLevel, "End If");
}

void WriteSelect(Body& oBody, std::size_t lLevel, std::size_t lLines) {
  oBody.oWriter.Line(lLevel, "Select Case lCount Mod " + oBody.Number(7));
  oBody.oWriter.Line(lLevel + 1, "Case 0");
  WriteStatements(oBody, lLevel + 2, lLines / 2);
  oBody.oWriter.Line(lLevel + 1, "Case 1, 3 To " + oBody.Number(60));
  WriteStatements(oBody, lLevel + 2, lLines / 2);
  oBody.oWriter.Line(lLevel + 1, "Case Else");
  WriteSimple(oBody, lLevel + 2);
  oBody.oWriter.Line(lLevel, "End Select");
}

void WriteFor(Body& oBody, std::size_t lLevel, std::size_t lLines) {
  oBody.oWriter.Line(lLevel, "For lIndex = 1 To moList.Count");
  oBody.oWriter.Line(lLevel + 1, "With moList(lIndex)");
  oBody.oWriter.Line(lLevel + 2, "." + oBody.Name("Last") + " = Now: lCount = lCount + .Count");
  WriteStatements(oBody, lLevel + 2, lLines);
  oBody.oWriter.Line(lLevel + 1, "End With");
  oBody.oWriter.Line(lLevel, "Next lIndex");
}

void WriteLoop(Body& oBody, std::size_t lLevel, std::size_t lLines) {
  const std::string sLabel = "Retry" + std::to_string(++oBody.lLabels);
  oBody.oWriter.Line(0, sLabel + ":");
  oBody.oWriter.Line(lLevel, "Do While lCount < " + oBody.Number(100));
  WriteStatements(oBody, lLevel + 1, lLines);
  oBody.oWriter.Line(lLevel + 1, "If lFactor = lCount Then GoTo " + sLabel);
  oBody.oWriter.Line(lLevel, "Loop");
}

void WriteStatements(Body& oBody, std::size_t lLevel, std::size_t lLines) {
  const std::size_t lEnd = oBody.oWriter.Lines() + (lLines == 0 ? 1 : lLines);
  while (oBody.oWriter.Lines() < lEnd) {
    const std::size_t lLeft = lEnd - oBody.oWriter.Lines();
    const std::uint32_t lKind = oBody.oWriter.oDice.Roll(14);
    if (lLeft < 6 || lLevel > 3 || lKind > 5) {
      WriteSimple(oBody, lLevel);
    } else if (lKind < 2) {
      WriteIf(oBody, lLevel, lLeft / 2);
    } else if (lKind == 2) {
      WriteSelect(oBody, lLevel, lLeft / 2);
    } else if (lKind == 3) {
      WriteFor(oBody, lLevel, lLeft / 2);
    } else if (lKind == 4) {
      WriteContinued(oBody, lLevel);
    } else {
      WriteLoop(oBody, lLevel, lLeft / 2);
    }
  }
}

}  // namespace

std::string_view Noun(Dice& oDice) {
  return asNoun[oDice.Roll(asNoun.size())];
}

void WriteBody(VBWriter& oWriter, std::string_view sExit, std::size_t lLines) {
  Body oBody{oWriter, sExit};
  oWriter.Line(1, "Dim lIndex As Long, lFactor As Long, cTotal As Currency");
  oWriter.Line(1, "Dim oItem As Object");
  if (oWriter.oDice.OneIn(2)) oWriter.Blank();
  WriteStatements(oBody, 1, lLines);
}
