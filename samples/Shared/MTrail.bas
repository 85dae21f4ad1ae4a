Attribute VB_Name = "MTrail"
' What the handlers of every procedure compile against: the values of the three properties, the
' answers of the run-time, and the defaults of a module that sets none of its own.
Option Explicit
'Quillon: Locked

Public Const tvnBoundaryNone As Long = 1        ' the error travels on to the caller
Public Const tvnBoundaryVB As Long = 2          ' called by Visual Basic: the error must end here
Public Const tvnBoundaryFirewall As Long = 3    ' the error ends here, silently
Public Const tvnBoundaryActiveX As Long = 4     ' the error leaves the component

Public Const tvnSeverityCosmetic As Long = 1
Public Const tvnSeverityNormal As Long = 2
Public Const tvnSeverityFatal As Long = 3

Public Const tvnRetryLine As Long = 1
Public Const tvnRetryProcedure As Long = 2
Public Const tvnRetryNone As Long = 3

Public Enum TrailAction
    tvnActionLeave = 0
    tvnActionLine = 1
    tvnActionProcedure = 2
End Enum

Public Const TrailBoundary As Long = tvnBoundaryNone
Public Const TrailSeverity As Long = tvnSeverityNormal
Public Const TrailRetry As Long = tvnRetryNone

' Errors are always logged. Traces are when this variable of the environment isn't empty at the
' start, or from the moment that the program sets gTrail.Tracing.
Public Const TrailTraceVariable As String = "TRAIL_TRACE"
Public Const TrailLogSize As Long = 1048576     ' bytes; the log and the one before it stay below twice that

' All that Err holds, and the line.
Public Type TrailError
    lNumber As Long
    sSource As String
    sText As String
    sHelpFile As String
    lHelpContext As Long
    lLine As Long
End Type

Public gTrail As New CTrail

' The folder of the log; the Windows folder of temporary files when the program's own is not known.
Public Function TrailFolder() As String
'Quillon: Locked
    TrailFolder = App.Path
    If Len(TrailFolder) = 0 Then TrailFolder = Environ$("TEMP")
    If Right$(TrailFolder, 1) <> "\" Then TrailFolder = TrailFolder & "\"
End Function

Public Sub RaiseTrailError(tError As TrailError)
'Quillon: Locked
    With tError
        Err.Raise .lNumber, .sSource, .sText, .sHelpFile, .lHelpContext
    End With
End Sub

Public Function ErrNow() As TrailError
'Quillon: Locked
    ErrNow.lNumber = Err.Number
    ErrNow.sSource = Err.Source
    ErrNow.sText = Err.Description
    ErrNow.sHelpFile = Err.HelpFile
    ErrNow.lHelpContext = Err.HelpContext
End Function

' Nothing is raised by this. The number comes first: it brings a text of its own with it.
Public Sub PutErr(tError As TrailError)
'Quillon: Locked
    Err.Number = tError.lNumber
    Err.Source = tError.sSource
    Err.Description = tError.sText
    Err.HelpFile = tError.sHelpFile
    Err.HelpContext = tError.lHelpContext
End Sub
