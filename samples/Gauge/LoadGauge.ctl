VERSION 5.00
Begin VB.UserControl LoadGauge 
   ClientHeight    =   375
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   3015
   ScaleHeight     =   25
   ScaleMode       =   3  'Pixel
   ScaleWidth      =   201
   Begin VB.PictureBox picBar 
      AutoRedraw      =   -1  'True
      BorderStyle     =   0  'None
      Height          =   255
      Left            =   60
      ScaleHeight     =   17
      ScaleMode       =   3  'Pixel
      ScaleWidth      =   193
      TabIndex        =   0
      Top             =   60
      Width           =   2895
   End
   Begin VB.Timer tmrBlink 
      Enabled         =   0   'False
      Interval        =   400
      Left            =   2520
      Top             =   0
   End
End
Attribute VB_Name = "LoadGauge"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
' A bar that shows how full the workshop is, and blinks when it is too full.
Option Explicit

Private Const clDefaultMaximum As Long = 20
Private Const clDefaultColor As Long = &H8000&

Public Event Click()
Attribute Click.VB_UserMemId = -600
Public Event Full(ByVal lValue As Long)

Private mlValue As Long
Private mlMaximum As Long
Private mColor As OLE_COLOR
Private mbLit As Boolean

Private Sub UserControl_InitProperties()
    mlMaximum = clDefaultMaximum
    mColor = clDefaultColor
    Set picBar.Font = Ambient.Font
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    mlMaximum = PropBag.ReadProperty("Maximum", clDefaultMaximum)
    mlValue = PropBag.ReadProperty("Value", 0)
    mColor = PropBag.ReadProperty("BarColor", clDefaultColor)
    DrawBar
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    Call PropBag.WriteProperty("Maximum", mlMaximum, clDefaultMaximum)
    Call PropBag.WriteProperty("Value", mlValue, 0)
    Call PropBag.WriteProperty("BarColor", mColor, clDefaultColor)
End Sub

Private Sub UserControl_Resize()
    Dim nMargin As Single
    nMargin = 4
    If ScaleWidth <= 2 * nMargin Or ScaleHeight <= 2 * nMargin Then Exit Sub
    picBar.Move nMargin, nMargin, ScaleWidth - 2 * nMargin, ScaleHeight - 2 * nMargin
    DrawBar
End Sub

Private Sub picBar_Click()
    RaiseEvent Click
End Sub

Private Sub tmrBlink_Timer()
    mbLit = Not mbLit
    DrawBar
End Sub

Public Property Get Value() As Long
Attribute Value.VB_Description = "Bikes in the workshop."
Attribute Value.VB_UserMemId = 0
Attribute Value.VB_MemberFlags = "200"
    Value = mlValue
End Property

Public Property Let Value(ByVal lValue As Long)
    If lValue < 0 Then lValue = 0
    mlValue = lValue
    tmrBlink.Enabled = (mlValue > mlMaximum)
    If mlValue > mlMaximum Then RaiseEvent Full(mlValue) Else mbLit = True
    DrawBar
    PropertyChanged "Value"
End Property

Public Property Get Maximum() As Long
Attribute Maximum.VB_ProcData.VB_Invoke_Property = ";Behavior"
    Maximum = mlMaximum
End Property

Public Property Let Maximum(ByVal lMaximum As Long)
    If lMaximum < 1 Then Err.Raise 380
    mlMaximum = lMaximum
    DrawBar
    PropertyChanged "Maximum"
End Property

Public Property Get BarColor() As OLE_COLOR
    BarColor = mColor
End Property

Public Property Let BarColor(ByVal vColor As OLE_COLOR)
    mColor = vColor
    DrawBar
    PropertyChanged "BarColor"
End Property

Public Property Get Font() As StdFont
Attribute Font.VB_UserMemId = -512
    Set Font = picBar.Font
End Property

Public Property Set Font(ByVal oFont As StdFont)
    Set picBar.Font = oFont
    DrawBar
    PropertyChanged "Font"
End Property

Public Sub Refresh()
Attribute Refresh.VB_UserMemId = -550
    DrawBar
End Sub

Private Sub DrawBar()
    Dim nShare As Single, sText As String

    If mlMaximum < 1 Then Exit Sub
    nShare = mlValue / mlMaximum
    If nShare > 1 Then nShare = 1

    picBar.Cls
    If mbLit Or nShare < 1 Then
        picBar.Line (0, 0)-(picBar.ScaleWidth * nShare, picBar.ScaleHeight), mColor, BF
    End If
    sText = mlValue & "/" & mlMaximum
    picBar.CurrentX = (picBar.ScaleWidth - picBar.TextWidth(sText)) / 2
    picBar.CurrentY = 1
    picBar.Print sText
End Sub
