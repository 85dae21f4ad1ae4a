VERSION 5.00
Object = "*\A..\Gauge\AtelierGauge.vbp"
Begin VB.MDIForm FShop 
   BackColor       =   &H8000000C&
   Caption         =   "Atelier Vélo"
   ClientHeight    =   6150
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9300
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   2  'CenterScreen
   Begin VB.PictureBox picTop 
      Align           =   1  'Align Top
      BorderStyle     =   0  'None
      Height          =   510
      Left            =   0
      ScaleHeight     =   510
      ScaleWidth      =   9300
      TabIndex        =   0
      Top             =   0
      Width           =   9300
      Begin VB.CommandButton cmdState 
         Caption         =   "&Reçus"
         Height          =   375
         Index           =   0
         Left            =   60
         TabIndex        =   1
         Top             =   60
         Width           =   1215
      End
      Begin VB.CommandButton cmdState 
         Caption         =   "En &cours"
         Height          =   375
         Index           =   1
         Left            =   1320
         TabIndex        =   2
         Top             =   60
         Width           =   1215
      End
      Begin VB.CommandButton cmdState 
         Caption         =   "&Terminés"
         Height          =   375
         Index           =   2
         Left            =   2580
         TabIndex        =   3
         Top             =   60
         Width           =   1215
      End
      Begin AtelierGauge.LoadGauge gauLoad 
         Height          =   375
         Left            =   4020
         TabIndex        =   4
         Top             =   60
         Width           =   3015
         _ExtentX        =   5318
         _ExtentY        =   661
         Maximum         =   40
      End
      Begin VB.Label lblCount 
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   255
         Left            =   7200
         TabIndex        =   5
         Top             =   120
         Width           =   1935
      End
   End
   Begin VB.Timer tmrRefresh 
      Enabled         =   0   'False
      Interval        =   1000
      Left            =   120
      Top             =   720
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&Fichier"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&Nouvelle réparation..."
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileSave 
         Caption         =   "&Enregistrer"
         Shortcut        =   ^S
      End
      Begin VB.Menu mnuFileLine 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "(vide)"
         Index           =   0
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "&Quitter"
      End
   End
   Begin VB.Menu mnuView 
      Caption         =   "&Affichage"
      Begin VB.Menu mnuViewFind 
         Caption         =   "&Chercher un client..."
         Shortcut        =   ^F
      End
      Begin VB.Menu mnuViewAuto 
         Caption         =   "Rafraîchir &seul"
      End
   End
End
Attribute VB_Name = "FShop"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' The main window: the jobs of one day, by state.
Option Explicit

Private WithEvents mJobs As CJobList
Attribute mJobs.VB_VarHelpID = -1
Private mlSeconds As Long, mbClosing As Boolean
Private meShown As JobState

Private Sub MDIForm_Load()
    Set mJobs = New CJobList
    meShown = JobNew
    FillJobs
    tmrRefresh.Enabled = True
    Caption = ProductName() & " - " & gSettings.DataFile
End Sub

Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    Dim nAnswer As VbMsgBoxResult

    If mbClosing Or Not gWorkshop.Dirty Then Exit Sub
    nAnswer = MsgBox("Enregistrer les réparations modifiées?", vbYesNoCancel + vbQuestion)
    Select Case nAnswer
    Case vbYes: mnuFileSave_Click
    Case vbCancel: Cancel = True: Exit Sub
    End Select
    mbClosing = True
End Sub

Private Sub MDIForm_Unload(Cancel As Integer)
    tmrRefresh.Enabled = False
    Set mJobs = Nothing
    Shutdown
End Sub

Private Sub cmdState_Click(Index As Integer)
    Select Case Index
        Case 0
            meShown = JobNew
        Case 1
            meShown = JobStarted
        Case 2
            meShown = JobDone
    End Select
    FillJobs
End Sub

Private Sub mnuFileNew_Click()
    Dim oForm As FJob

    Set oForm = New FJob
    oForm.Edit gWorkshop.NewJob()
End Sub

Private Sub mnuFileSave_Click()
    Screen.MousePointer = vbHourglass
    gWorkshop.SaveFile
    Screen.MousePointer = vbDefault
End Sub

Private Sub mnuFileRecent_Click(Index As Integer)
    If Index = 0 Then Beep: Exit Sub
    gWorkshop.DataFile = mnuFileRecent(Index).Caption
    gWorkshop.OpenFile
    FillJobs
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuViewFind_Click()
    Dim sClient As String, lPlace As Long
    sClient = FFind.Ask("")
    If Len(sClient) = 0 Then Exit Sub

    lPlace = mJobs.Find(sClient)
    If lPlace = 0 Then
        MsgBox "Personne ne s'appelle «" & sClient & "».", vbInformation
    Else
        ShowJob mJobs(lPlace)
    End If
End Sub

Private Sub mnuViewAuto_Click()
    mnuViewAuto.Checked = Not mnuViewAuto.Checked
    mlSeconds = 0
End Sub

Private Sub tmrRefresh_Timer()
    If Not mnuViewAuto.Checked Then Exit Sub
    mlSeconds = mlSeconds + 1
    If mlSeconds >= gSettings.RefreshSeconds Then mlSeconds = 0: FillJobs
End Sub

Private Sub mJobs_Changed(ByVal lCount As Long)
    lblCount.Caption = lCount & IIf(lCount = 1, " vélo", " vélos")
    gauLoad.Value = lCount
End Sub

Public Sub FillJobs()
    Dim i As Long

    FreezeWindow Me.hWnd, True
    Do While mJobs.Count > 0
        mJobs.Remove 1
    Loop
    For i = 1 To gWorkshop.Jobs
        If gWorkshop.Job(i).State = meShown Then mJobs.Add gWorkshop.Job(i)
    Next i
    FreezeWindow Me.hWnd, False
End Sub

Public Sub ShowJob(ByVal oJob As AtelierCore.CJob)
    Dim oForm As Form
    For Each oForm In Forms
        If TypeOf oForm Is FJob Then
            If oForm.Tag = oJob.Key Then oForm.ZOrder: Exit Sub
        End If
    Next oForm
    With New FJob
        .Tag = oJob.Key
        .Edit oJob
    End With
End Sub
