VERSION 5.00
Begin VB.Form FJob 
   Caption         =   "Réparation"
   ClientHeight    =   3600
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   5400
   KeyPreview      =   -1  'True
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   3600
   ScaleWidth      =   5400
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   0
      Left            =   1440
      TabIndex        =   1
      Top             =   120
      Width           =   3735
   End
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   1
      Left            =   1440
      TabIndex        =   3
      Top             =   540
      Width           =   3735
   End
   Begin VB.TextBox txtField 
      Alignment       =   1  'Right Justify
      Height          =   315
      Index           =   2
      Left            =   1440
      TabIndex        =   5
      Top             =   960
      Width           =   1215
   End
   Begin VB.ComboBox cboStation 
      Height          =   315
      Left            =   1440
      Style           =   2  'Dropdown List
      TabIndex        =   6
      Top             =   1380
      Width           =   2295
   End
   Begin VB.OptionButton optState 
      Caption         =   "reçu"
      Height          =   255
      Index           =   0
      Left            =   1440
      TabIndex        =   7
      Top             =   1860
      Value           =   -1  'True
      Width           =   1095
   End
   Begin VB.OptionButton optState 
      Caption         =   "en cours"
      Height          =   255
      Index           =   1
      Left            =   2640
      TabIndex        =   8
      Top             =   1860
      Width           =   1095
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   2640
      TabIndex        =   9
      Top             =   3060
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Annuler"
      Height          =   375
      Left            =   3960
      TabIndex        =   10
      Top             =   3060
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "&Client:"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "&Vélo:"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   2
      Top             =   600
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "&Prix prévu:"
      Height          =   255
      Index           =   2
      Left            =   120
      TabIndex        =   4
      Top             =   1020
      Width           =   1215
   End
End
Attribute VB_Name = "FJob"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Const FieldClient = 0, FieldBike = 1, FieldPrice = 2

Private mJob As AtelierCore.CJob
Private mbFilling As Boolean

' Shows the job; OK writes the fields back to it.
Public Sub Edit(ByVal oJob As AtelierCore.CJob)
    Set mJob = oJob
    mbFilling = True
    txtField(FieldClient).Text = oJob.Client
    txtField(FieldBike).Text = oJob.Bike
    txtField(FieldPrice).Text = Format$(oJob.Price, "0.00")
    optState(IIf(oJob.State = JobNew, 0, 1)).Value = True
    mbFilling = False
    Show
End Sub

Private Sub Form_Load()
    Dim i As Long
    For i = 1 To Stations
        cboStation.AddItem StationName(i)
    Next
    If cboStation.ListCount > 0 Then cboStation.ListIndex = 0
End Sub

Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)
    If KeyCode = vbKeyF2 And (Shift And vbCtrlMask) = 0 Then cmdOK.Value = True
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set mJob = Nothing
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub

Private Sub cmdOK_Click()
    Dim cPrice As Currency

    If Not ParsePrice(txtField(FieldPrice).Text, cPrice) Then
        MsgBox "Le prix n'est pas un nombre: " & txtField(FieldPrice).Text, vbExclamation
        txtField(FieldPrice).SetFocus
        Exit Sub
    End If
    mJob.Client = Trim$(txtField(FieldClient).Text)
    mJob.Bike = Trim$(txtField(FieldBike).Text)
    mJob.Price = cPrice
    If optState(1).Value Then mJob.Start cboStation.Text
    FShop.FillJobs
    Unload Me
End Sub

Private Sub optState_Click(Index As Integer)
    If mbFilling Then Exit Sub Else cboStation.Enabled = (Index = 1)
End Sub

Private Sub txtField_GotFocus(Index As Integer)
    With txtField(Index)
        .SelStart = 0
        .SelLength = Len(.Text)
    End With
End Sub

Private Sub txtField_KeyPress(Index As Integer, KeyAscii As Integer)
    If Index <> FieldPrice Or KeyAscii < 32 Then Exit Sub
    Select Case KeyAscii
        Case 48 To 57
        Case Asc(","), Asc("."): If InStr(txtField(Index).Text, ",") > 0 Then KeyAscii = 0
        Case Else
            KeyAscii = 0: Beep
    End Select
End Sub
