// Edits, bytes to bytes: what they don't change comes back as it was.
#include "SourceText.h"

namespace {

// Deletes as[3] lines from line as[2] of a table's row, and inserts as[4] there; "-" for no insert.
// bLook: reads the index in between. Gives the count of lines that were left.
std::int32_t Edit(SourceDocument& oDocument, const std::vector<std::string>& as, bool bLook) {
  const std::int32_t lStart = std::stoi(as[2]), lDelete = std::stoi(as[3]);
  if (lDelete > 0) oDocument.DeleteLines(lStart, lDelete);
  if (bLook) IndexText(oDocument);
  const std::int32_t lLeft = oDocument.CountOfLines();
  if (as[4] != "-") oDocument.InsertLines(lStart, FromUtf8(Joined(as[4])));
  return lLeft;
}

// Rows: the text, the edit, the text behind it, the code page.
TEST(SourceEdit, KeepsTheBytesOfLinesThatComeBack) {
  for (const auto& as : Rows(R"(
    same lines                                  ~ Sub A()|x\ny\rEnd Sub| ~ 1 ~ 4 ~ Sub A()|x|y|End Sub ~ Sub A()|x\ny\rEnd Sub|
    no end at the end                           ~ a\nb\nc ~ 3 ~ 1 ~ c ~ a\nb\nc
    lines around a body                         ~ a\nb|c\nd\n ~ 1 ~ 4 ~ n|a|b|m|c|d|z ~ n\na\nb|m\nc\nd\nz\n
    changed lines keep their ends               ~ a\nb|c\n ~ 1 ~ 3 ~ a|10 b|c ~ a\n10 b|c\n
    a changed line among new ones keeps its end ~ a\nIf b Then c|d\n ~ 1 ~ 3 ~ a|1   If b Then t: c|n|d ~ a\n1   If b Then t: c|n\nd\n
    lines taken out of a body                   ~ a\nb|c\nd|e\n ~ 1 ~ 5 ~ a|c|e ~ a\nc\ne\n
    repeated lines between anchors              ~ s\n|x\n|y|\nz\n ~ 1 ~ 7 ~ s|||x||n|y||z ~ s\n|\nx\n|n\ny|\nz\n
    order changed                               ~ a\nb|c\n ~ 1 ~ 3 ~ c|a|b ~ c\na\nb|
    deletes side by side                        ~ a\nb|c\nd\n ~ 2 ~ 2 ~ b|c ~ a\nb|c\nd\n
    new last line, no end                       ~ a|b ~ 3 ~ 0 ~ c ~ a|b|c
    empty last line is kept                     ~ a|b ~ 2 ~ 1 ~  ~ a||
    last line goes, no end                      ~ a|b|c ~ 2 ~ 2 ~ - ~ a
    all lines go                                ~ Attribute VB_Name = "A"|a|b ~ 1 ~ 2 ~ - ~ Attribute VB_Name = "A"
    line end at the end adds a line             ~ a| ~ 1 ~ 0 ~ b| ~ b||a|
    into an empty file                          ~  ~ 1 ~ 0 ~ a|b ~ a|b|
    into a file of LF                           ~ a\nb\n ~ 9 ~ 0 ~ c|d ~ a\nb\nc\nd\n
    behind the header                           ~ Attribute VB_Name = "A"\n ~ 1 ~ 0 ~ a ~ Attribute VB_Name = "A"\na\n
    lone CR and LF don't join                   ~ a\rb|\n ~ 2 ~ 1 ~ - ~ a\r\n\n
    byte-order mark                             ~ \xEF\xBB\xBF\xC3\xA4|b ~ 1 ~ 1 ~ \xC3\xA4|c ~ \xEF\xBB\xBF\xC3\xA4|c|b ~ utf-8
    undefined and high bytes                    ~ \x81\xE4\n\x9D| ~ 1 ~ 2 ~ \xC2\x81\xC3\xA4|n|\xC2\x9D ~ \x81\xE4\nn|\x9D|
    other page                                  ~ \x83\x5c| ~ 1 ~ 1 ~ \xE3\x82\xBD|\xE3\x82\xBD\xE3\x82\xBD ~ \x83\x5c|\x83\x5c\x83\x5c| ~ 932
    hidden line behind its head                 ~ Sub A()|Attribute A.VB_X = 1|x|End Sub| ~ 1 ~ 3 ~ ' s|Sub A()|t|x|End Sub ~ ' s|Sub A()|Attribute A.VB_X = 1|t|x|End Sub|
    head of several lines                       ~ Sub A( _| b)|Attribute A.VB_X = 1|End Sub| ~ 1 ~ 3 ~ Sub A( _| b)|x|End Sub ~ Sub A( _| b)|Attribute A.VB_X = 1|x|End Sub|
    head changed                                ~ Sub A()|Attribute A.VB_X = 1|End Sub| ~ 1 ~ 2 ~ Public Sub a( _|b)|End Sub ~ Public Sub a( _|b)|Attribute A.VB_X = 1|End Sub|
    variable changed                            ~ Dim a, b|Attribute b.VB_VarX = 1\nDim c| ~ 1 ~ 2 ~ Dim z|Dim a, b As C|Dim c ~ Dim z|Dim a, b As C|Attribute b.VB_VarX = 1\nDim c|
    its name is gone                            ~ x|y|Attribute A.VB_X = 1|z| ~ 1 ~ 3 ~ x|z ~ x|Attribute A.VB_X = 1|z|
    nothing ahead of it                         ~ y|Attribute A.VB_X = 1|z ~ 1 ~ 2 ~ n ~ Attribute A.VB_X = 1|n
    hidden last line without end                ~ Sub A()|Attribute A.VB_X = 1 ~ 1 ~ 1 ~ Sub A()|End Sub ~ Sub A()|Attribute A.VB_X = 1|End Sub
    lone CR and LF in new text                  ~ a|b|c| ~ 1 ~ 3 ~ a\rx\n|c ~ a|x||c|
    nothing but a lone LF                       ~ a|b|c| ~ 2 ~ 1 ~ \n ~ a|||c|
    hidden lines go with their line             ~ a|Attribute A.VB_X = 1|b| ~ 1 ~ 1 ~ - ~ b|)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    const auto open = [&](std::size_t i) {
      return Opened(as[i], as.size() > 6 ? as[6].c_str() : "1252");
    };
    const std::int32_t lStart = std::stoi(as[2]), lDelete = std::stoi(as[3]);
    const auto pDocument = open(1);
    const std::string sBefore = pDocument->Bytes(), sAfter = Joined(as[5]);
    const Text sOld = lDelete > 0 ? pDocument->Lines(lStart, lDelete) : Text();
    const std::int32_t lLeft = Edit(*pDocument, as, false);
    EXPECT_EQ(pDocument->Bytes(), sAfter);
    EXPECT_EQ(pDocument->IsChanged(), sBefore != sAfter);
    EXPECT_EQ(pDocument->SavedBytes(), sBefore);
    EXPECT_EQ(pDocument->CountOfLines(), open(5)->CountOfLines());
    pDocument->MarkSaved();
    EXPECT_EQ(pDocument->SavedBytes(), sAfter);
    EXPECT_FALSE(pDocument->IsChanged());
    // Back again: only the ends of lines that are new once more may differ.
    const std::int32_t lNew = pDocument->CountOfLines() - lLeft;
    if (lStart > pDocument->CountOfLines()) continue;
    pDocument->DeleteLines(lStart, lNew);
    if (lDelete > 0) pDocument->InsertLines(lStart, sOld);
    EXPECT_EQ(pDocument->SavedBytes(), sAfter);
    EXPECT_EQ(pDocument->Lines(1, pDocument->CountOfLines()),
              open(1)->Lines(1, pDocument->CountOfLines()));
  }
}

TEST(SourceEdit, RemembersDeletesSideBySideAndNoOthers) {
  const auto pDocument = Opened("a\nb|c\nd|e|");
  pDocument->DeleteLines(3, 1);
  pDocument->DeleteLines(2, 1);
  pDocument->DeleteLines(2, 1);
  pDocument->InsertLines(2, u"b\r\nc\r\nd");
  EXPECT_FALSE(pDocument->IsChanged());
  pDocument->DeleteLines(1, 1);
  pDocument->InsertLines(2, u"a");
  EXPECT_EQ(pDocument->Bytes(), Joined("b|a|c\nd|e|"));
}

TEST(SourceEdit, ACharacterThatThePageLacksChangesNothing) {
  const auto pDocument = Opened("Sub A()|Attribute A.VB_X = 1|x\nEnd Sub");
  const std::string sBytes = pDocument->Bytes();
  const Text sCode = pDocument->Lines(1, 3);
  pDocument->DeleteLines(1, 3);
  try {
    pDocument->InsertLines(1, sCode + u" ' \U0001F600");
    ADD_FAILURE() << "accepted";
  } catch (const Failure& oFailure) {
    EXPECT_EQ(oFailure.Number(), 5);
    EXPECT_EQ(ToUtf8(oFailure.Description()),
              "The character U+1F600 (\U0001F600) can't be written in code page 1252; use another "
              "character, or open the project with another code page");
  }
  EXPECT_EQ(pDocument->CountOfLines(), 0);
  pDocument->InsertLines(1, sCode);
  EXPECT_EQ(pDocument->Bytes(), sBytes);
  EXPECT_FALSE(pDocument->IsChanged());
}

TEST(SourceEdit, LinesThatArentThereAreRefused) {
  const auto pDocument = Opened("a|b|");
  EXPECT_THROW(pDocument->Lines(2, 2), Failure);
  EXPECT_THROW(pDocument->Lines(0, 1), Failure);
  EXPECT_THROW(pDocument->Lines(1, -1), Failure);
  EXPECT_THROW(pDocument->DeleteLines(3, 1), Failure);
  EXPECT_THROW(pDocument->DeleteLines(2, 0x7FFFFFFF), Failure);
  EXPECT_THROW(pDocument->InsertLines(0, u"x"), Failure);
  EXPECT_THROW(pDocument->MemberAt(1), Failure);
  EXPECT_EQ(pDocument->Bytes(), "a\r\nb\r\n");
}

// Whatever an edit does, the index is the one that a new reading of the bytes gives.
TEST(SourceEdit, TheIndexFollows) {
  const std::string sModule =
      "Option Explicit|Dim a||Sub A()|x|End Sub|' glued||Property Get B()|End Property|"
      "Property Let B(v)|End Property|#If DEMO Then|Sub C()|x|End Sub|#End If|Sub D()|End Sub||";
  const std::string sHidden = "Sub A()|End Sub|#If k Then|Sub H()|End Sub|#End If|Sub B()|End Sub|";
  for (const auto& as : Rows(R"(
    end of a directive too many  ~ hidden ~ 1 ~ 2 ~ Sub A()|#End If|End Sub
    directive left open          ~ hidden ~ 6 ~ 3 ~ #End If|Sub B()|End Sub|#If k Then
    constant that others ask for ~ hidden ~ 1 ~ 2 ~ Sub A()|#Const k = 1|End Sub
    comment at the very top      ~ module ~ 11 ~ 2 ~ ' x|Property Let B(v)|End Property
    ahead of a hidden one        ~ hidden ~ 1 ~ 2 ~ Sub A()|x|End Sub
    behind a hidden one          ~ hidden ~ 6 ~ 3 ~ #End If|' x|Sub B()|x|End Sub
    in a hidden one              ~ hidden ~ 4 ~ 1 ~ Sub H()|x
    another hidden one           ~ hidden ~ 7 ~ 2 ~ Sub B()|End Sub|#If k Then|Sub G()|End Sub|#End If
    longer body                  ~ module ~ 3 ~ 5 ~ |Sub A()|x|y|z|End Sub|' glued
    comment at the top           ~ module ~ 9 ~ 2 ~ ' new _| one|Property Get B()|End Property
    blank at the bottom          ~ module ~ 9 ~ 2 ~ Property Get B()|End Property|
    comment at the bottom        ~ module ~ 9 ~ 2 ~ Property Get B()|End Property|' x
    comment that goes on         ~ module ~ 9 ~ 2 ~ Property Get B()|End Property|' x _
    other scope                  ~ module ~ 9 ~ 2 ~ Friend Property Get B()|End Property
    other name                   ~ module ~ 4 ~ 3 ~ Sub Other()|End Sub
    other kind                   ~ module ~ 4 ~ 3 ~ Property Set A(x)|End Property
    no end                       ~ module ~ 4 ~ 3 ~ Sub A()|x
    second procedure             ~ module ~ 4 ~ 3 ~ Sub A()|End Sub|Sub A2()|End Sub
    declaration ahead            ~ module ~ 3 ~ 5 ~ Dim q||Sub A()|End Sub
    open directive               ~ module ~ 11 ~ 2 ~ Property Let B(v)|#If 0 Then|End Property
    stray end of a directive     ~ module ~ 11 ~ 2 ~ Property Let B(v)|#End If|End Property
    directive gone               ~ module ~ 13 ~ 1 ~ -
    balanced directive           ~ module ~ 18 ~ 3 ~ Sub D()|#If 0 Then|End Sub|#End If|End Sub||
    open directive at the end    ~ module ~ 18 ~ 3 ~ Sub D()|End Sub|#If 0 Then|
    module constant              ~ module ~ 18 ~ 3 ~ Sub D()|End Sub|#Const k = 1
    declarations                 ~ module ~ 1 ~ 2 ~ ' m|Option Explicit|Dim a
    more declarations            ~ module ~ 1 ~ 2 ~ Option Explicit|Dim a, b|Declare Sub Q Lib "q" ()
    blank behind declarations    ~ module ~ 1 ~ 2 ~ Option Explicit|Dim a|
    procedure in declarations    ~ module ~ 1 ~ 2 ~ Option Explicit|Sub N()|End Sub
    open type                    ~ module ~ 1 ~ 2 ~ Type T|x As Long
    declarations gone            ~ module ~ 1 ~ 2 ~ -
    over a border                ~ module ~ 6 ~ 3 ~ End Sub|
    at the end                   ~ module ~ 21 ~ 0 ~ Sub Z()|End Sub
    all                          ~ module ~ 1 ~ 20 ~ Sub Z()|End Sub
    stray variable               ~ Sub A()|End Sub||Dim v|Sub B()|End Sub| ~ 3 ~ 4 ~ |Sub B()|End Sub
    line ahead of a stray one    ~ Sub A()|End Sub||Dim v| ~ 1 ~ 4 ~ Sub A()|' x|End Sub||Dim v
    behind an open head          ~ Sub A()|x|Sub B()|End Sub| ~ 3 ~ 2 ~ |Sub B()|End Sub
    nothing ahead                ~ Sub A()|End Sub| ~ 1 ~ 0 ~ ' m|Dim a|)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    for (const bool bLook : {false, true}) {
      const auto pDocument = Opened(as[1] == "module"   ? sModule
                                    : as[1] == "hidden" ? sHidden
                                                        : as[1]);
      IndexText(*pDocument);
      Edit(*pDocument, as, bLook);
      EXPECT_EQ(IndexText(*pDocument), IndexText(*Opened(pDocument->Bytes())));
    }
  }
}

TEST(SourceEdit, NewLinesOfEveryLengthAreReadBackAndWritten) {
  const auto pDocument = Opened("Sub A()|End Sub|");
  Text sLines = u"Sub A()";
  for (std::size_t lLength = 1; lLength < 20000; lLength = lLength * 5 / 4 + 1)
    for (const std::size_t l : {lLength, std::size_t{4094}, lLength % 7})
      sLines += u"\r\n" + Text(l, static_cast<char16_t>(u'a' + l % 26));
  sLines += u"\r\nEnd Sub";
  pDocument->DeleteLines(1, 2);
  pDocument->InsertLines(1, sLines);
  EXPECT_EQ(pDocument->Lines(1, pDocument->CountOfLines()), sLines);
  EXPECT_EQ(pDocument->Bytes(), ToUtf8(sLines) + "\r\n");
}

}  // namespace
