#include "VBComponent.h"

#include <string_view>

#include "VBBody.h"
#include "VBWriter.h"

namespace {

void WriteClassHeader(VBWriter& oWriter) {
  oWriter.Line(0, "VERSION 1.0 CLASS");
  oWriter.Line(0, "BEGIN");
  oWriter.Line(0, "  MultiUse = -1  'True");
  oWriter.Line(0, "  Persistable = 0  'NotPersistable");
  oWriter.Line(0, "END");
}

void WriteDesigner(VBWriter& oWriter, std::string_view sRoot, const std::string& sName,
                   std::size_t lControls) {
  oWriter.Line(0, "VERSION 5.00");
  oWriter.Line(0, "Begin " + std::string(sRoot) + " " + sName + " ");
  oWriter.Line(0, "   ClientHeight    =   6150");
  oWriter.Line(0, "   ClientWidth     =   9300");
  for (std::size_t i = 0; i < lControls; ++i) {
    oWriter.Line(0, "   Begin VB.CommandButton cmdAction" + std::to_string(i) + " ");
    oWriter.Line(0, "      Caption         =   \"&R\xe9gler\"");
    oWriter.Line(0, "      Height          =   375");
    oWriter.Line(0, "      TabIndex        =   " + std::to_string(i));
    oWriter.Line(0, "   End");
  }
  oWriter.Line(0, "End");
}

void WriteModuleAttributes(VBWriter& oWriter, VBKind eKind, const std::string& sName) {
  oWriter.Line(0, "Attribute VB_Name = \"" + sName + "\"");
  if (eKind == VBKind::Module) return;
  oWriter.Line(0, "Attribute VB_GlobalNameSpace = False");
  oWriter.Line(0, eKind == VBKind::Form ? "Attribute VB_Creatable = False"
                                        : "Attribute VB_Creatable = True");
  oWriter.Line(0, eKind == VBKind::Form ? "Attribute VB_PredeclaredId = True"
                                        : "Attribute VB_PredeclaredId = False");
  oWriter.Line(
      0, eKind == VBKind::Form ? "Attribute VB_Exposed = False" : "Attribute VB_Exposed = True");
}

void WriteDeclarations(VBWriter& oWriter, VBKind eKind) {
  oWriter.Line(0, "' Made-up source for measuring.");
  oWriter.Line(0, "Option Explicit");
  oWriter.Blank();
  if (eKind == VBKind::Class) oWriter.Line(0, "Implements ISupplierFeed");
  if (eKind != VBKind::Module) {
    oWriter.Line(0, "Private WithEvents moFeed As SupplierFeed");
    oWriter.Line(0, "Attribute moFeed.VB_VarHelpID = -1");
  }
  oWriter.Line(0, "Private Type TEntry");
  oWriter.Line(1, "sName As String * 20");
  oWriter.Line(1, "[End] As Date");
  oWriter.Line(0, "End Type");
  oWriter.Line(0, "Private Declare Function SendNote Lib \"user32\" Alias \"SendMessageA\" _");
  oWriter.Line(1, "(ByVal hWnd As Long, ByVal wMsg As Long, ByVal wParam As Long, _");
  oWriter.Line(1, " ByRef lParam As Any) As Long");
  oWriter.Line(0, "Private moList As Collection, mlCount As Long, mtEntry() As TEntry");
  oWriter.Blank();
}

constexpr std::string_view sArguments =
    "(ByVal sName As String, ByRef lCount As Long, Optional ByVal bForce As Boolean)";

void WriteMethod(VBWriter& oWriter, const std::string& sName) {
  const bool bFunction = oWriter.oDice.OneIn(3);
  const std::string sKind = bFunction ? "Function" : "Sub";
  oWriter.Line(0, (oWriter.oDice.OneIn(2) ? "Public " : "Private ") + sKind + " " + sName +
                      std::string(sArguments) + (bFunction ? " As Variant" : ""));
  WriteBody(oWriter, sKind, 8 + oWriter.oDice.Roll(14));
  oWriter.Line(0, "End " + sKind);
}

void WriteHandler(VBWriter& oWriter, std::size_t lControl) {
  oWriter.Line(0, "Private Sub cmdAction" + std::to_string(lControl) + "_Click()");
  oWriter.Line(1, "Dim sName As String, lCount As Long, bForce As Boolean");
  WriteBody(oWriter, "Sub", 6 + oWriter.oDice.Roll(8));
  oWriter.Line(0, "End Sub");
}

void WriteProperty(VBWriter& oWriter, const std::string& sName) {
  oWriter.Line(0, "Public Property Get " + sName + "() As Long");
  oWriter.Line(0, "Attribute " + sName +
                      ".VB_Description = \"Nombre de pi\xe8"
                      "ces.\"");
  oWriter.Line(1, "If moList Is Nothing Then Exit Property");
  oWriter.Line(1, sName + " = mlCount + moList.Count");
  oWriter.Line(0, "End Property");
  oWriter.Blank();
  oWriter.Line(0, "Public Property Let " + sName + "(ByVal lCount As Long)");
  oWriter.Line(1, "Dim sName As String, bForce As Boolean");
  WriteBody(oWriter, "Property", 5);
  oWriter.Line(1, "mlCount = lCount");
  oWriter.Line(0, "End Property");
}

/// With error handling of its own.
void WriteOldMethod(VBWriter& oWriter, const std::string& sName) {
  oWriter.Line(0, "Public Sub " + sName + std::string(sArguments));
  oWriter.Line(1, "On Error GoTo Failed");
  WriteBody(oWriter, "Sub", 8);
  oWriter.Line(1, "Exit Sub");
  oWriter.Line(0, "Failed:");
  oWriter.Line(1, "MsgBox Err.Description, vbExclamation");
  oWriter.Line(0, "End Sub");
}

}  // namespace

std::string MakeComponent(VBKind eKind, const std::string& sName, std::size_t lLines,
                          std::uint32_t lSeed, std::uint32_t handlerOneIn) {
  VBWriter oWriter(lSeed);
  const bool bDesigner = eKind == VBKind::Form || eKind == VBKind::Control;
  const std::size_t lControls = bDesigner ? 2 + lLines / 60 : 0;
  if (eKind == VBKind::Class) WriteClassHeader(oWriter);
  if (eKind == VBKind::Form) WriteDesigner(oWriter, "VB.Form", sName, lControls);
  if (eKind == VBKind::Control) WriteDesigner(oWriter, "VB.UserControl", sName, lControls);
  WriteModuleAttributes(oWriter, eKind, sName);
  WriteDeclarations(oWriter, eKind);

  std::size_t lHandler = 0;
  for (std::size_t i = 1; oWriter.Lines() < lLines; ++i) {
    const std::string sProc = std::string(Noun(oWriter.oDice)) + std::to_string(i);
    if (oWriter.oDice.OneIn(3)) oWriter.Line(0, "' " + sProc + ": called by the season's report.");
    if (oWriter.oDice.OneIn(handlerOneIn)) {
      WriteOldMethod(oWriter, "Import" + sProc);
    } else if (lHandler < lControls && oWriter.oDice.OneIn(3)) {
      WriteHandler(oWriter, lHandler++);
    } else if (eKind != VBKind::Module && oWriter.oDice.OneIn(4)) {
      WriteProperty(oWriter, "Size" + sProc);
    } else {
      WriteMethod(oWriter, "Update" + sProc);
    }
    oWriter.Blank();
  }
  return oWriter.Take();
}
