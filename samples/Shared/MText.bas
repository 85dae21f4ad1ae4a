Attribute VB_Name = "MText"
' Text helpers that the program and the component share.
Option Explicit
Option Compare Text

Private Const csAccents As String = "àâäçéèêëîïôöùûü"
Private Const csPlain As String = "aaaceeeeiioouuu"

Public Enum TextSide
    SideLeft = 1
    SideRight = 2
End Enum

Private Declare Function GetTickCount Lib "kernel32" () As Long

' Folds accents, so that "Müller" is found by "muller".
Public Function Folded(ByVal sText As String) As String
    Dim i As Long, lPlace As Long

    sText = LCase$(sText)
    For i = 1 To Len(sText)
        lPlace = InStr(1, csAccents, Mid$(sText, i, 1), vbBinaryCompare)
        If lPlace > 0 Then Mid$(sText, i, 1) = Mid$(csPlain, lPlace, 1)
    Next i
    Folded = sText
End Function

Public Function Padded(ByVal sText As String, ByVal lWidth As Long, _
                       Optional ByVal eSide As TextSide = SideRight) As String
    If Len(sText) >= lWidth Then Padded = sText: Exit Function
    If eSide = SideLeft Then
        Padded = Space$(lWidth - Len(sText)) & sText
    Else
        Padded = sText & Space$(lWidth - Len(sText))
    End If
End Function

' "12,50" and "12.50" are the same price.
Public Function ParsePrice(ByVal sText As String, ByRef cPrice As Currency) As Boolean
    Dim lComma As Long

    lComma = InStr(sText, ",")
    If lComma > 0 Then Mid$(sText, lComma, 1) = "."
    If Not IsNumeric(sText) Then Exit Function
    cPrice = CCur(Val(sText))
    ParsePrice = (cPrice >= 0)
End Function

#If TRIAL Then
Public Function ProductName() As String
    ProductName = "Atelier Vélo (version d'essai)"
End Function
#Else
Public Function ProductName() As String
    ProductName = "Atelier Vélo"
End Function
#End If

Public Function SplitFields(ByVal sLine As String, ByVal sSeparator As String) As Variant
    Dim asField() As String, lCount As Long, lPlace As Long

    ReDim asField(0 To 0)
NextField:
    lPlace = InStr(sLine, sSeparator)
    If lPlace = 0 Then GoTo LastField
    asField(lCount) = Trim$(Left$(sLine, lPlace - 1))
    sLine = Mid$(sLine, lPlace + Len(sSeparator))
    lCount = lCount + 1
    ReDim Preserve asField(0 To lCount)
    GoTo NextField
LastField:
    asField(lCount) = Trim$(sLine)
    SplitFields = asField
End Function

' Milliseconds since a start value of GetTickCount, which turns negative after 24 days.
Public Function ElapsedSince(ByVal lStart As Long) As Double
    ElapsedSince = CDbl(GetTickCount()) - lStart
    If ElapsedSince < 0 Then ElapsedSince = ElapsedSince + 4294967296#
End Function

Public Function StartTick() As Long
    StartTick = GetTickCount()
End Function
