// What is found in a source text: procedures, their lines, members, and what is only text.
#include "SourceText.h"

namespace {

// Rows: a name, the source text, its index. sBehind stands behind each text.
void Check(const char* szTable, const std::string& sBehind = {}) {
  for (const auto& as : Rows(szTable, '~')) {
    SCOPED_TRACE(as[0]);
    for (const char* szEnd : {"\r\n", "\n", "\r"})
      for (const char* szPage : {"1252", "932"}) {
        const auto pDocument = Opened(as[1] + sBehind, szPage, szEnd);
        EXPECT_EQ(IndexText(*pDocument), as[2]);
        EXPECT_EQ(pDocument->Bytes(), Joined(as[1] + sBehind, szEnd));
      }
  }
}

TEST(SourceIndex, LinesBetweenProceduresGoWhereTheEditorPutsThem) {
  Check(R"vb(
      empty file                      ~  ~ D0
      only declarations               ~ Option Explicit||' end| ~ D3
      glued and free comments         ~ Option Explicit|Dim t|' glued||' adds|Sub Add()|t = 1|End Sub|' glued||Sub B()|End Sub|| ~ D3 v1t@2 m2Add@6,0:4/6/6 m2B@11,0:10/11/4
      nothing between                 ~ Dim a|Sub B()|End Sub|Sub C()|End Sub| ~ D1 v1a@1 m2B@2,0:2/2/2 m2C@4,0:4/4/2
      comments ahead of all           ~ ' one|' two|Sub B()|End Sub| ~ D0 m2B@3,0:1/3/4
      blank ahead of all              ~ |Sub B()|End Sub| ~ D0 m2B@2,0:1/2/3
      directives                      ~ Dim a|#If DEMO Then|Sub B()|End Sub|#End If|Sub C()|End Sub|#If 0 Then|#End If| ~ D1 v1a@1 m2B@3,0:2/3/3 m2C@6,0:5/6/5
      comment goes on over the border ~ Sub A()|End Sub|' x _|y||Sub B()|End Sub ~ D0 m2A@1,0:1/1/4 m2B@6,0:5/6/3
      directive between declarations  ~ #Const X = 1|Dim a|#If X Then|Dim b|#End If|Sub C()|End Sub ~ D4 v1a@2 v1b@4 m2C@6,0:5/6/3
      last line without end           ~ Sub A()|End Sub ~ D0 m2A@1,0:1/1/2)vb");
}

TEST(SourceIndex, LinesOfTheFileCountWhateverEndsThem) {
  for (const char* szEnd : {"\r\n", "\n", "\r"}) {
    const char* const szText =
        R"(VERSION 1.0 CLASS|BEGIN|END|Attribute VB_Name = "C"|Dim a|Attribute a.VB_X = 1|b)";
    const auto pDocument = Opened(szText, "1252", szEnd);
    EXPECT_EQ(pDocument->FileLine(1), 5);
    EXPECT_EQ(pDocument->FileLine(2), 7);
    EXPECT_EQ(pDocument->FileLine(1), 5) << "behind a later one";
  }
}

TEST(SourceIndex, HeadsAndEndsAreTold) {
  // A procedure behind each shows whether the one ahead of it was seen to end.
  Check(R"vb(
      end in a continued comment             ~ Sub A()|' Sub Old() _|End Sub|x|End Sub| ~ D0 m2A@1,0:1/1/5 m2Z@7,0:6/7/3
      end in string and comment              ~ Sub A()|x = "End Sub" ' End Sub|End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      Rem                                    ~ Sub A()|Rem End Sub|a = 1: Rem End Sub|Remote = 1: End Sub| ~ D0 m2A@1,0:1/1/4 m2Z@6,0:5/6/3
      one line                               ~ Public Function Sum(a, b): Sum = a + b: End Function| ~ D0 m2Sum@1,0:1/1/1 m2Z@3,0:2/3/3
      continued head                         ~ Public _|Sub _|Run( _|)|End _| Sub| ~ D0 m2Run@1,0:1/1/6 m2Z@8,0:7/8/3
      tab continues                          ~ Sub A(\t_\t|x)|End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      underscore of a name continues nothing ~ Sub A()|x = Foo_|End Sub|Sub B()|End Sub| ~ D0 m2A@1,0:1/1/3 m2B@4,0:4/4/2 m2Z@7,0:6/7/3
      suffix                                 ~ Function Left3$(s$): Left3 = Left$(s, 3): End Function| ~ D0 m2Left3@1,0:1/1/1 m2Z@3,0:2/3/3
      names with keywords in them            ~ Sub A()|SubTotal = FunctionKey(EndSubject)|End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      label and number                       ~ Sub A()|Done: End Sub|Sub B()|900 End Sub|Sub C()|20 Fin: End Sub| ~ D0 m2A@1,0:1/1/2 m2B@3,0:3/3/2 m2C@5,0:5/5/2 m2Z@8,0:7/8/3
      exit is no end                         ~ Sub A()|If n = 0 Then Exit Sub: Else n = 1|If a Then b = 1 Else: c = 2|End Sub| ~ D0 m2A@1,0:1/1/4 m2Z@6,0:5/6/3
      End alone                              ~ Sub A()|End|End: x|End If|End With|End Sub| ~ D0 m2A@1,0:1/1/6 m2Z@8,0:7/8/3
      date                                   ~ Sub A()|t = #11:59:00 PM#: End Sub|Sub B()|Print #1: End Sub| ~ D0 m2A@1,0:1/1/2 m2B@3,0:3/3/2 m2Z@6,0:5/6/3
      named argument                         ~ Sub A()|Show Title:="Sub X()", Mode:=1: End Sub| ~ D0 m2A@1,0:1/1/2 m2Z@4,0:3/4/3
      bracketed name                         ~ Sub A()|x = [it's: odd]: End Sub| ~ D0 m2A@1,0:1/1/2 m2Z@4,0:3/4/3
      fields                                 ~ Sub A()|rs!End = 1: rs.Sub = 2: Me!Function = 3|.End|End Sub| ~ D0 m2A@1,0:1/1/4 m2Z@6,0:5/6/3
      spaces and comment at the end          ~ Sub A()|End   Sub' done|Sub B()|End Sub: Rem done| ~ D0 m2A@1,0:1/1/2 m2B@3,0:3/3/2 m2Z@6,0:5/6/3
      tab, no brackets                       ~ Sub\tForm_Load|End Sub| ~ D0 m2Form_Load@1,0:1/1/2 m2Z@4,0:3/4/3
      statement behind the head              ~ Private Sub c_Click(Index%): On Error Resume Next|End Sub| ~ D0 m1c_Click@1,0:1/1/2 m2Z@4,0:3/4/3
      unclosed string                        ~ Sub A()|Debug.Print "a _|End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      blank line ends a continuation         ~ Sub A()|x = y _||End Sub| ~ D0 m2A@1,0:1/1/4 m2Z@6,0:5/6/3
      quotes                                 ~ Sub A()|Call Log("a""b'c") ' it's "fine|End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      default with brackets                  ~ Function F(Optional s As String = "):") As String()|End Function| ~ D0 m2F@1,0:1/1/2 m2Z@4,0:3/4/3
      comment on the head goes on            ~ Private Function S1() ' x _|End Function|y|End Function| ~ D0 m1S1@1,0:1/1/4 m2Z@6,0:5/6/3
      empty statements                       ~ Sub A()|Beep : : Beep : ' nothing|: End Sub| ~ D0 m2A@1,0:1/1/3 m2Z@5,0:4/5/3
      set on one line                        ~ Public Property Set Font(f): Set m = f: End Property| ~ D0 p2Font@1,2:1/1/1 m2Z@3,0:2/3/3
      friend static                          ~ Friend Static Function Id&()|Static n As Long|End Function| ~ D0 m3Id@1,0:1/1/3 m2Z@5,0:4/5/3
      bracketed procedure                    ~ Public Sub [Stop]()|End Sub| ~ D0 m2Stop@1,0:1/1/2 m2Z@4,0:3/4/3
      property kinds                         ~ Property Get Name$()|End Property|Private Property Let Name(v$)|End Property| ~ D0 p2Name@1,1:3/3/2,3:1/1/2 m2Z@6,0:5/6/3
      two on one line                        ~ Sub A(): End Sub: Sub B()|x|End Sub|Sub C()|End Sub| ~ D0 m2A@1,0:1/1/1 m2C@4,0:2/4/4 m2Z@7,0:6/7/3
      head without end                       ~ Sub A()|x||Sub B()|End Sub| ~ D0 m2A@1,0:1/1/3 m2B@4,0:4/4/2 m2Z@7,0:6/7/3
      end without head                       ~ Dim a|End Sub|Sub B()|End Sub| ~ D2 v1a@1 m2B@3,0:3/3/2 m2Z@6,0:5/6/3
      same name twice                        ~ Sub A()|End Sub|Sub A()|x|End Sub|Sub B()|End Sub| ~ D0 m2A@1,0:1/1/2 m2B@6,0:6/6/2 m2Z@9,0:8/9/3)vb",
        "|Sub Z()|End Sub");
}

TEST(SourceIndex, SecondBytesOfCharactersAreNoMarks) {
  const char* const szText = R"(Sub A\x83\x5b()|x = [\x83\x5d]: y = "\x83\x5c"|End Sub|Dim z)";
  const auto pDocument = Opened(szText, "932");
  EXPECT_EQ(IndexText(*pDocument), "D0 m2A\u30bc@1,0:1/1/4 v1z@4");
}

TEST(SourceIndex, MembersAreTold) {
  Check(R"vb(
      Declare                        ~ Private Declare Function Beep Lib "k" _| (ByVal f&) As Long|Declare Sub S Lib "k" ()| ~ D3 m1Beep@1 m2S@3
      type members                   ~ Type Job|Sub As Long|End As Date|Function As String|End Type|Dim a| ~ D6 v1a@6
      enum members                   ~ Private Enum Part|[Sub] = 1|[End Sub]|End Enum|Dim a| ~ D5 v1a@5
      type on one line               ~ Private Type T: x As Long: End Type|Dim a| ~ D2 v1a@2
      open type                      ~ Private Type T|x As Long|Private Sub A()|End Sub| ~ D2 m1A@3,0:3/3/2
      WithEvents                     ~ Private WithEvents a As Btn, WithEvents b As Btn, c%|Public WithEvents d As X| ~ D2 v1a@1 v1b@1 v1c@1 v2d@2
      constants                      ~ Const A = 1, B = "x,y", C = (2)|Public Const D& = &H1, E As Long = 2|Global Const F = 1| ~ D3 c1A@1 c1B@1 c1C@1 c2D@2 c2E@2 c2F@3
      lists                          ~ Dim s As String * 10, t() As Long, u(1 To 3, 0 To 2) As Byte|Global g, _|h| ~ D3 v1s@1 v1t@1 v1u@1 v2g@2 v2h@2
      event                          ~ Public Event Sub_Done(ByVal Function_ As Long)|Event E()| ~ D2 e2Sub_Done@1 e2E@2
      commas in brackets             ~ Dim u(x, y), w| ~ D1 v1u@1 v1w@1
      no members                     ~ Option Base 1|DefInt A-Z|Implements IRun|Attribute IRun.VB_VarHelpID = -1| ~ D3
      accessors of several scopes    ~ Private Property Let P(v)|End Property|Friend Property Get p()|End Property| ~ D0 p3P@1,1:1/1/2,3:3/3/2
      declaration behind a procedure ~ Sub A()|End Sub||Dim b|Sub C()|End Sub| ~ D0 m2A@1,0:1/1/2 v1b@4 m2C@5,0:3/5/4
      hidden lines                   ~ Sub Go()|Attribute Go.VB_Description = "Sub Main(): End Sub"|x|End Sub| ~ D0 m2Go@1,0:1/1/3
      header                         ~ VERSION 1.0 CLASS|BEGIN|  MultiUse = -1  'True|END|Attribute VB_Name = "A"||Dim a| ~ D2 v1a@2)vb");
}

TEST(SourceIndex, OnlyActiveLinesCount) {
  Check(R"vb(
      two heads, one body        ~ #If DEMO Then|Sub Go(ByVal a&)|#Else|Sub Go()|#End If|Beep|End Sub| ~ D0 m2Go@2,0:1/2/7
      other branch               ~ #If Not DEMO Then|Sub A()|End Sub|#Else|Public A As Long|#End If| ~ D6 v2A@5
      declaration behind         ~ #If demo = 0 Then|x|#ElseIf Level >= 3 And Win32 Then|Dim b|#Else|Dim c|#End If| ~ D7 v1b@4
      module constant            ~ #Const k = Level * 2 - 1|#If k = 5 Then|Dim a|#End If|#If Unknown Then|Dim b|#End If| ~ D7 v1a@3
      first constant stands      ~ #Const k = 1|#Const k = 0|#If k Then|Dim a|#End If| ~ D5 v1a@4
      operators                  ~ #If (1 + 2) ^ 2 = 9 And "ab" Like "a*" And 7 Mod 4 = 3 And Not 0 Then|Dim a|#End If| ~ D3 v1a@2
      empty name                 ~ #If Nope = "" And Nope = 0 And Len("abc") <> 2 Xor 0 Then|Dim a|#End If| ~ D3 v1a@2
      nested                     ~ #If 0 Then|#If 1 Then|Dim a|#Else|Dim b|#End If|#Else|Dim c|#End If| ~ D9 v1c@8
      inactive text isn't read   ~ #If 0 Then|Sub A()|Type X|"|#End If|Sub B()|End Sub| ~ D0 m2B@6,0:5/6/3 H1
      values leave a head open   ~ #If 0 Then|Sub A()|End Sub|#Else|Sub A()|#End If|Sub B()|End Sub| ~ D0 m2A@2,0:1/2/3 m2B@7,0:6/7/3 H1
      procedure of no variant    ~ Sub A()|End Sub||' x|#If 0 Then|' y|Sub B()|End Sub|#End If||Sub C()|End Sub| ~ D0 m2A@1,0:1/1/2 m2C@11,0:9/11/4 H1
      behind all others          ~ Sub A()|End Sub|' y|#If 0 Then|Sub B()|End Sub|#End If|' z ~ D0 m2A@1,0:1/1/3 H1
      behind declarations        ~ Dim a|#If 0 Then|Sub B()|End Sub|Sub C()|End Sub|#End If| ~ D1 v1a@1 H2
      inactive declaration       ~ Dim a|#If 0 Then|Dim b|#End If|Sub B()|End Sub| ~ D1 v1a@1 m2B@5,0:4/5/3
      nothing in the branch      ~ Sub A()|End Sub|#If 0 Then||#End If|Sub B()|End Sub| ~ D0 m2A@1,0:1/1/2 m2B@6,0:3/6/5
      other head first           ~ #If 0 Then|Sub Go(ByVal a&)|' x|#Else|Sub Go()|#End If|Beep|End Sub| ~ D0 m2Go@5,0:1/5/8
      three heads                ~ #If 0 Then|Sub Go(a)|#ElseIf 0 Then|Sub Go(b)|#Else|Sub Go()|#End If|End Sub| ~ D0 m2Go@6,0:1/6/8
      procedure ahead of heads   ~ #If 0 Then|Sub A()|End Sub|#End If|#If 0 Then|Sub Go(a)|#Else|Sub Go()|#End If|End Sub| ~ D0 m2Go@8,0:4/8/7 H1
      head with a statement      ~ #If 0 Then|Sub Go(a)|x|#Else|Sub Go()|#End If|End Sub| ~ D0 m2Go@5,0:4/5/4 H1
      two heads in one branch    ~ #If 0 Then|Sub Go(a)|Sub Go(b)|#Else|Sub Go()|#End If|End Sub| ~ D0 m2Go@5,0:4/5/4 H2
      head that leads nowhere    ~ #If 0 Then|Sub Go(a)|#Else|#End If|Sub B()|End Sub| ~ D0 m2B@5,0:3/5/4 H1
      blank behind the sign      ~ # If 0 Then|Sub B()|End Sub|#\tElse|Sub C()|End Sub| #EndIf| ~ D0 m2C@5,0:4/5/4 H1
      directives that don't pair ~ #If 0 Then|Sub A()|End Sub| ~ D0 m2A@2,0:1/2/3
      end without if             ~ #End If|#Else|Sub A()|End Sub| ~ D0 m2A@3,0:1/3/4
      unreadable                 ~ #If ((( Then|Dim a|#Else|Dim b|#End If|#Region x| ~ D6 v1b@4
      continued                  ~ #If DEMO And _|0 Then|Dim a|#End If ' x _|Dim b|Dim c ~ D6 v1c@6)vb");
}

}  // namespace
