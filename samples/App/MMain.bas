Attribute VB_Name = "MMain"
Option Explicit
DefLng H, L

Public gWorkshop As AtelierCore.CWorkshop
Public gSettings As CSettings

Private Const WM_SETREDRAW = &HB

#If Win32 Then
Private Declare Function SendMessage Lib "user32" Alias "SendMessageA" _
    (ByVal hWnd As Long, ByVal wMsg As Long, ByVal wParam As Long, _
     ByRef lParam As Any) As Long
#Else
Private Declare Function SendMessage Lib "User" _
    (ByVal hWnd As Integer, ByVal wMsg As Integer, ByVal wParam As Integer, _
     lParam As Any) As Long
#End If

Private Type TStation
    sName As String * 24
    lJobs As Long
    bOpen As Boolean
End Type

Private mtStation(1 To 6) As TStation
Private mlStations As Long

Public Sub Main()
    If App.PrevInstance Then Exit Sub
    Set gSettings = New CSettings
    Set gWorkshop = New AtelierCore.CWorkshop

    gSettings.Load
    gWorkshop.DataFile = gSettings.DataFile
    If Len(Dir$(gSettings.DataFile)) > 0 Then gWorkshop.OpenFile
    LoadStations gSettings.Stations
    #If SHOWLOAD Then
        Debug.Print "Jobs: "; gWorkshop.Jobs; " Stations: "; mlStations
    #End If
    FShop.Show
End Sub

' Stations come as one text: "Entrée;Roues;Dérailleurs".
Private Sub LoadStations(ByVal sStations As String)
    Dim vField As Variant, i As Integer

    vField = SplitFields(sStations, ";")
    mlStations = 0
    For i = LBound(vField) To UBound(vField)
        If mlStations = UBound(mtStation) Then Exit For
        If Len(vField(i)) > 0 Then
            mlStations = mlStations + 1
            mtStation(mlStations).sName = vField(i)
            mtStation(mlStations).bOpen = True
        End If
    Next i
End Sub

Public Function StationName(ByVal lStation As Long) As String
    If lStation < 1 Or lStation > mlStations Then Exit Function
    StationName = RTrim$(mtStation(lStation).sName)
End Function

Public Property Get Stations() As Long
    Stations = mlStations
End Property

Public Sub FreezeWindow(ByVal hWnd As Long, ByVal bFreeze As Boolean)
    Dim lResult As Long
    lResult = SendMessage(hWnd, WM_SETREDRAW, IIf(bFreeze, 0, 1), ByVal 0&)
End Sub

Public Function StateText(ByVal eState As JobState, Optional ByVal bShort As Boolean) As String
    Select Case eState
        Case JobNew
            StateText = "reçu"
        Case JobStarted, JobWaiting
            StateText = IIf(eState = JobStarted, "en cours", "en attente")
        Case JobDone
            StateText = "terminé"
        Case Is > JobDone
            StateText = "remis au client"
        Case Else
            StateText = "?"
    End Select
    If bShort Then StateText = Left$(StateText, 4) ' the narrow column
End Function

' Written in the first year; it has its own way of handling errors.
Public Function CopyBackup(ByVal sFrom As String, ByVal sTo As String) As Boolean
    Dim iTries As Integer
    On Error GoTo CopyFailed
CopyAgain:
    FileCopy sFrom, sTo
    CopyBackup = True
    Exit Function

CopyFailed:
    Select Case Err.Number
    Case 70
        iTries = iTries + 1
        If iTries < 3 Then Resume CopyAgain
    Case 76
        MkDir Left$(sTo, InStrRev(sTo, "\") - 1): Resume
    End Select
    MsgBox "La copie de sûreté a échoué: " & Err.Description, vbExclamation
End Function

Public Sub Shutdown()
    Dim oForm As Form

    For Each oForm In Forms
        Unload oForm
    Next oForm
    If Not gSettings Is Nothing Then gSettings.Save
    Set gWorkshop = Nothing: Set gSettings = Nothing
End Sub
