// The attributes of members over their hidden lines, and what the header says.
#include <algorithm>

#include "SourceText.h"

namespace {

using enum MemberAttribute;

constexpr std::string_view Names[] = {
    "Description", "HelpContextID", "Category",    "PropertyPage", "StandardMethod", "Hidden",
    "Bindable",    "Browsable",     "DefaultBind", "DisplayBind",  "RequestEdit",    "UIDefault"};

// A text, a number behind "#", or both.
AttributeValue ValueOf(const std::string& sCell) {
  const std::size_t lSign = sCell.find('#');
  if (lSign == std::string::npos) return {FromUtf8(sCell), 0};
  return {FromUtf8(sCell.substr(0, lSign)), std::stoi(sCell.substr(lSign + 1), nullptr, 0)};
}

// The attribute of the first member: its name, its value before and behind, the text before and
// behind.
TEST(SourceAttributes, AreReadAndWrittenInHiddenLines) {
  for (const auto& as : Rows(R"(
    new text              ~ Sub A( _|b)|End Sub| ~ Description ~  ~ say "x" ~ Sub A( _|b)|Attribute A.VB_Description = "say ""x"""|End Sub|
    same text             ~ Sub A()|attribute  a.vb_description="x"""|End Sub| ~ Description ~ x" ~ x"#7 ~ Sub A()|attribute  a.vb_description="x"""|End Sub|
    other text            ~ Sub A()\nAttribute A.VB_Description = "x"\nEnd Sub ~ Description ~ x ~ y ~ Sub A()\nAttribute A.VB_Description = "y"\nEnd Sub
    text taken away       ~ Sub A()|Attribute A.VB_Description = "x"|Attribute A.VB_Ext = 1|End Sub| ~ Description ~ x ~  ~ Sub A()|Attribute A.VB_Ext = 1|End Sub|
    order                 ~ Sub A()|Attribute A.VB_Description = "x"|Attribute A.VB_UserMemId = 0|End Sub| ~ HelpContextID ~  ~ #12 ~ Sub A()|Attribute A.VB_Description = "x"|Attribute A.VB_HelpID = 12|Attribute A.VB_UserMemId = 0|End Sub|
    no help               ~ Private WithEvents a As B|Attribute a.VB_VarHelpID = -1| ~ HelpContextID ~  ~ #-1 ~ Private WithEvents a As B|Attribute a.VB_VarHelpID = -1|
    help taken away       ~ Dim a, b|Attribute a.VB_VarHelpID = 5|Attribute b.VB_VarHelpID = 6| ~ HelpContextID ~ #5 ~  ~ Dim a, b|Attribute b.VB_VarHelpID = 6|
    order of a variable   ~ Dim a|Attribute a.VB_VarUserMemId = 0| ~ Hidden ~  ~ #-1 ~ Dim a|Attribute a.VB_VarMemberFlags = "40"|Attribute a.VB_VarUserMemId = 0|
    category only         ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = ";Data"|End Sub| ~ Category ~ Data ~ Font ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = ";Font"|End Sub|
    page beside category  ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = ";Data"|End Sub| ~ PropertyPage ~  ~ P ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = "P;Data"|End Sub|
    category taken away   ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = "P;Data"|End Sub| ~ Category ~ Data ~  ~ Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = "P"|End Sub|
    id                    ~ Event E()|Attribute E.VB_UserMemId = -600| ~ StandardMethod ~ #-600 ~ #-4 ~ Event E()|Attribute E.VB_UserMemId = -4|
    no id                 ~ Event E()| ~ StandardMethod ~ #0x60030000 ~ #9 ~ Event E()|
    id taken away         ~ Event E()|Attribute E.VB_UserMemId = 0| ~ StandardMethod ~  ~ #1 ~ Event E()|
    unknown flags stay    ~ Sub A()|Attribute A.VB_MemberFlags = "123c"|End Sub| ~ Bindable ~ #-1 ~  ~ Sub A()|Attribute A.VB_MemberFlags = "1238"|End Sub|
    set flag set again    ~ Sub A()|Attribute A.VB_MemberFlags = "123C"|End Sub| ~ DisplayBind ~ #-1 ~ #1 ~ Sub A()|Attribute A.VB_MemberFlags = "123C"|End Sub|
    last flag             ~ Sub A()|Attribute A.VB_MemberFlags = "400"|End Sub| ~ Browsable ~  ~ #-1 ~ Sub A()|End Sub|
    browsable             ~ Sub A()|End Sub ~ Browsable ~ #-1 ~  ~ Sub A()|Attribute A.VB_MemberFlags = "400"|End Sub
    default and request   ~ Sub A()|Attribute A.VB_MemberFlags = "8"|End Sub| ~ DefaultBind ~  ~ #-1 ~ Sub A()|Attribute A.VB_MemberFlags = "28"|End Sub|
    request               ~ Sub A()|Attribute A.VB_MemberFlags = "8"|End Sub| ~ RequestEdit ~ #-1 ~  ~ Sub A()|End Sub|
    interface default     ~ Sub A()|End Sub| ~ UIDefault ~  ~ #-1 ~ Sub A()|Attribute A.VB_MemberFlags = "200"|End Sub|
    on the Get            ~ Property Let P(v)|End Property|Property Get P()|End Property| ~ Category ~  ~ C ~ Property Let P(v)|End Property|Property Get P()|Attribute P.VB_ProcData.VB_Invoke_Property = ";C"|End Property|
    where others are      ~ Property Let P(v)|Attribute P.VB_UserMemId = 0|End Property|Property Get P()|End Property| ~ Category ~  ~ C ~ Property Let P(v)|Attribute P.VB_ProcData.VB_Invoke_PropertyPut = ";C"|Attribute P.VB_UserMemId = 0|End Property|Property Get P()|End Property|
    no Get                ~ Property Set P(v)|End Property ~ PropertyPage ~  ~ Q ~ Property Set P(v)|Attribute P.VB_ProcData.VB_Invoke_PropertyPutRef = "Q"|End Property
    one line, no line end ~ Sub A(): End Sub ~ Description ~  ~ x ~ Sub A(): End Sub|Attribute A.VB_Description = "x"
    brackets              ~ Sub [Stop]()|Attribute [Stop].VB_Description = "x"|End Sub| ~ Description ~ x ~ y ~ Sub [Stop]()|Attribute [Stop].VB_Description = "y"|End Sub|)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    const auto eAttribute = MemberAttribute(std::ranges::find(Names, as[2]) - Names);
    const auto pDocument = Opened(as[1]);
    EXPECT_TRUE(pDocument->Attribute(1, eAttribute) == ValueOf(as[3]));
    const std::string sIndex = IndexText(*pDocument);
    pDocument->SetAttribute(1, eAttribute, ValueOf(as[4]));
    EXPECT_EQ(pDocument->Bytes(), Joined(as[5]));
    EXPECT_EQ(pDocument->IsChanged(), as[1] != as[5]);
    EXPECT_EQ(IndexText(*pDocument), sIndex);
    pDocument->SetAttribute(1, eAttribute, ValueOf(as[3]));
    EXPECT_TRUE(pDocument->Attribute(1, eAttribute) == ValueOf(as[3]));
  }
}

TEST(SourceAttributes, TextThatCantStandInALineIsRefused) {
  const auto pDocument = Opened("Sub A()|End Sub|");
  EXPECT_THROW(pDocument->SetAttribute(1, Description, {u"a\nb", 0}), Failure);
  EXPECT_THROW(pDocument->SetAttribute(1, Category, {u"\u0416", 0}), Failure);
  EXPECT_THROW(pDocument->SetAttribute(2, Category, {u"x", 0}), Failure);
  EXPECT_FALSE(pDocument->IsChanged());
}

TEST(SourceAttributes, TheHeaderIsReadAndHidden) {
  const auto pForm = Opened(
      R"(VERSION 5.00|Object = "{A}#1.0#0"; "A.OCX"|Begin VB.MDIForm Main |   Caption = "It's ""x""" 'c|)"
      R"(   BeginProperty Font {B} |      Name = "F"|   EndProperty|   Begin VB.Menu mnu |      Caption = "m"|)"
      R"(      Begin VB.Menu sub1 |      End|   End|   MDIChild = -1  'True|End|attribute VB_Name = "Main"|)"
      R"(Attribute VB_Exposed = False|Attribute VB_Ext_KEY = "K" ,"V"||Dim a|)");
  ASSERT_EQ(pForm->Blocks().size(), 3U);
  EXPECT_EQ(pForm->Blocks()[0].sClass, u"VB.MDIForm");
  EXPECT_EQ(pForm->Blocks()[2].sName, u"sub1");
  EXPECT_EQ(pForm->Blocks()[2].nDepth, 2);
  EXPECT_EQ(pForm->RootProperty(u"caption"), u"\"It's \"\"x\"\"\"");
  EXPECT_EQ(pForm->RootProperty(u"mdichild"), u"-1");
  EXPECT_EQ(pForm->RootProperty(u"Name"), u"");
  EXPECT_EQ(pForm->ModuleAttribute(u"VB_NAME"), u"Main");
  EXPECT_EQ(IndexText(*pForm), "D2 v1a@2");
}

TEST(SourceAttributes, OddHeadersLoseNothing) {
  for (const auto& as : Rows(R"(
    no attributes                  ~ VERSION 2.00|Begin Form F|End|Sub A()|End Sub| ~ 2
    version only                   ~ VERSION 1.0 CLASS ~ 0
    block never closed             ~ VERSION 5.00|Begin VB.Form F|x = 1| ~ 0
    block never closed, attributes ~ VERSION 5.00|Begin VB.Form F|Attribute VB_Name = "F"|Dim a| ~ 1
    closed too often               ~ VERSION 5.00|Begin VB.Form F|End|End|Dim a| ~ 2
    no block                       ~ VERSION 1.0 CLASS|Attribute VB_Name = "A"|Dim a| ~ 1
    attribute below                ~ Dim a|Attribute VB_Name = "A"| ~ 2
    hidden at once                 ~ Attribute A.VB_X = 1|Attribute B.VB_X = 2|Dim a ~ 1
    byte-order mark                ~ \xEF\xBB\xBFAttribute VB_Name = "A"|Dim a ~ 1)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    const auto pDocument = Opened(as[1]);
    EXPECT_EQ(pDocument->CountOfLines(), std::stoi(as[2]));
    pDocument->InsertLines(1, u"x");
    pDocument->DeleteLines(1, 1);
    EXPECT_EQ(pDocument->Bytes(), Joined(as[1]));
    EXPECT_FALSE(pDocument->IsChanged());
  }
}

}  // namespace
