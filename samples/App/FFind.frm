VERSION 5.00
Begin VB.Form FFind 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Chercher un client"
   ClientHeight    =   1125
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   4200
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   1125
   ScaleWidth      =   4200
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.TextBox txtClient 
      Height          =   315
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   3975
   End
   Begin VB.CommandButton cmdFind 
      Caption         =   "Chercher"
      Default         =   -1  'True
      Height          =   375
      Left            =   2880
      TabIndex        =   1
      Top             =   600
      Width           =   1215
   End
End
Attribute VB_Name = "FFind"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
Private msClient As String

Public Function Ask(ByVal sClient As String) As String
    msClient = ""
    txtClient.Text = sClient
    Show vbModal
    Ask = msClient
End Function

Private Sub cmdFind_Click()
    msClient = Trim$(txtClient.Text)
    Hide
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If UnloadMode = vbFormControlMenu Then Cancel = True: Hide
End Sub

Private Sub txtClient_Change()
    cmdFind.Enabled = Len(Trim$(txtClient.Text)) > 0
End Sub
