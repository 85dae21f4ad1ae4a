Attribute VB_Name = "MCore"
Option Explicit

Public Enum JobError
    ErrNoFile = vbObjectError + 513
    ErrBadLine
    ErrBadState
End Enum

Public Const csFieldSeparator As String = "|"

' The next number of a job, with the year in front: 2004-0137.
Public Function NextKey(ByVal lYear As Long, ByVal lLast As Long) As String
    NextKey = Format$(lYear, "0000") & "-" & Format$(lLast + 1, "0000")
End Function

Public Function Quoted(ByVal sText As String) As String
    Dim i As Long, sChar As String
    For i = 1 To Len(sText)
        sChar = Mid$(sText, i, 1)
        If sChar = csFieldSeparator Then GoTo SkipChar
        If sChar = vbCr Or sChar = vbLf Then sChar = " "
        Quoted = Quoted & sChar
SkipChar:
    Next i
End Function

Public Function DaysLate(ByVal dDue As Date, Optional ByVal dToday As Date) As Long
    If dToday = 0 Then dToday = Date
    If dDue = 0 Or dDue >= dToday Then Exit Function
    DaysLate = DateDiff("d", dDue, dToday)
    ' Nobody works on Sundays; holidays such as #12/25/2004# are left to the shop.
    DaysLate = DaysLate - DateDiff("ww", dDue, dToday, vbSunday)
End Function

Public Sub RaiseJobError(ByVal eError As JobError, ByVal sWhere As String)
    Dim sText As String

    Select Case eError
    Case ErrNoFile
        sText = "Le fichier des réparations n'existe pas."
    Case ErrBadLine
        sText = "Une ligne du fichier n'est pas lisible."
    Case ErrBadState
        sText = "Cette réparation n'est pas dans l'état voulu."
    End Select
    Err.Raise eError, sWhere, sText
End Sub
