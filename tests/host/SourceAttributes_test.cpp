// The attributes of members over their hidden lines, and what the header says.
#include "SourceText.h"

namespace {

using enum MemberAttribute;

struct Row {
  const char* szName;
  const char* szBefore;
  MemberAttribute eAttribute;
  AttributeValue oOld, oNew;
  const char* szAfter;
};

// The attribute of the first member.
TEST(SourceAttributes, AreReadAndWrittenInHiddenLines) {
  const Row aoRow[] = {
      {"new text",
       "Sub A( _|b)|End Sub|",
       Description,
       {u"", 0},
       {u"say \"x\"", 0},
       "Sub A( _|b)|Attribute A.VB_Description = \"say \"\"x\"\"\"|End Sub|"},
      {"same text",
       "Sub A()|attribute  a.vb_description=\"x\"\"\"|End Sub|",
       Description,
       {u"x\"", 0},
       {u"x\"", 7},
       "Sub A()|attribute  a.vb_description=\"x\"\"\"|End Sub|"},
      {"other text",
       "Sub A()\nAttribute A.VB_Description = \"x\"\nEnd Sub",
       Description,
       {u"x", 0},
       {u"y", 0},
       "Sub A()\nAttribute A.VB_Description = \"y\"\nEnd Sub"},
      {"text taken away",
       "Sub A()|Attribute A.VB_Description = \"x\"|Attribute A.VB_Ext = 1|End Sub|",
       Description,
       {u"x", 0},
       {},
       "Sub A()|Attribute A.VB_Ext = 1|End Sub|"},
      {"order",
       "Sub A()|Attribute A.VB_Description = \"x\"|Attribute A.VB_UserMemId = 0|End Sub|",
       HelpContextID,
       {},
       {u"", 12},
       "Sub A()|Attribute A.VB_Description = \"x\"|Attribute A.VB_HelpID = 12|Attribute "
       "A.VB_UserMemId = 0|End Sub|"},
      {"no help",
       "Private WithEvents a As B|Attribute a.VB_VarHelpID = -1|",
       HelpContextID,
       {},
       {u"", -1},
       "Private WithEvents a As B|Attribute a.VB_VarHelpID = -1|"},
      {"help taken away",
       "Dim a, b|Attribute a.VB_VarHelpID = 5|Attribute b.VB_VarHelpID = 6|",
       HelpContextID,
       {u"", 5},
       {},
       "Dim a, b|Attribute b.VB_VarHelpID = 6|"},
      {"order of a variable",
       "Dim a|Attribute a.VB_VarUserMemId = 0|",
       Hidden,
       {},
       {u"", -1},
       "Dim a|Attribute a.VB_VarMemberFlags = \"40\"|Attribute a.VB_VarUserMemId = 0|"},
      {"category only",
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \";Data\"|End Sub|",
       Category,
       {u"Data", 0},
       {u"Font", 0},
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \";Font\"|End Sub|"},
      {"page beside category",
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \";Data\"|End Sub|",
       PropertyPage,
       {},
       {u"P", 0},
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \"P;Data\"|End Sub|"},
      {"category taken away",
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \"P;Data\"|End Sub|",
       Category,
       {u"Data", 0},
       {},
       "Sub A()|Attribute A.VB_ProcData.VB_Invoke_Property = \"P\"|End Sub|"},
      {"id",
       "Event E()|Attribute E.VB_UserMemId = -600|",
       StandardMethod,
       {u"", -600},
       {u"", -4},
       "Event E()|Attribute E.VB_UserMemId = -4|"},
      {"no id", "Event E()|", StandardMethod, {u"", 0x60030000}, {u"", 9}, "Event E()|"},
      {"id taken away",
       "Event E()|Attribute E.VB_UserMemId = 0|",
       StandardMethod,
       {},
       {u"", 1},
       "Event E()|"},
      {"unknown flags stay",
       "Sub A()|Attribute A.VB_MemberFlags = \"123c\"|End Sub|",
       Bindable,
       {u"", -1},
       {},
       "Sub A()|Attribute A.VB_MemberFlags = \"1238\"|End Sub|"},
      {"set flag set again",
       "Sub A()|Attribute A.VB_MemberFlags = \"123C\"|End Sub|",
       DisplayBind,
       {u"", -1},
       {u"", 1},
       "Sub A()|Attribute A.VB_MemberFlags = \"123C\"|End Sub|"},
      {"last flag",
       "Sub A()|Attribute A.VB_MemberFlags = \"400\"|End Sub|",
       Browsable,
       {},
       {u"", -1},
       "Sub A()|End Sub|"},
      {"browsable",
       "Sub A()|End Sub",
       Browsable,
       {u"", -1},
       {},
       "Sub A()|Attribute A.VB_MemberFlags = \"400\"|End Sub"},
      {"default and request",
       "Sub A()|Attribute A.VB_MemberFlags = \"8\"|End Sub|",
       DefaultBind,
       {},
       {u"", -1},
       "Sub A()|Attribute A.VB_MemberFlags = \"28\"|End Sub|"},
      {"request",
       "Sub A()|Attribute A.VB_MemberFlags = \"8\"|End Sub|",
       RequestEdit,
       {u"", -1},
       {},
       "Sub A()|End Sub|"},
      {"interface default",
       "Sub A()|End Sub|",
       UIDefault,
       {},
       {u"", -1},
       "Sub A()|Attribute A.VB_MemberFlags = \"200\"|End Sub|"},
      {"on the Get",
       "Property Let P(v)|End Property|Property Get P()|End Property|",
       Category,
       {},
       {u"C", 0},
       "Property Let P(v)|End Property|Property Get P()|Attribute P.VB_ProcData.VB_Invoke_Property "
       "= \";C\"|End Property|"},
      {"where others are",
       "Property Let P(v)|Attribute P.VB_UserMemId = 0|End Property|Property Get P()|End Property|",
       Category,
       {},
       {u"C", 0},
       "Property Let P(v)|Attribute P.VB_ProcData.VB_Invoke_PropertyPut = \";C\"|Attribute "
       "P.VB_UserMemId = 0|End Property|Property Get P()|End Property|"},
      {"no Get",
       "Property Set P(v)|End Property",
       PropertyPage,
       {},
       {u"Q", 0},
       "Property Set P(v)|Attribute P.VB_ProcData.VB_Invoke_PropertyPutRef = \"Q\"|End Property"},
      {"one line, no line end",
       "Sub A(): End Sub",
       Description,
       {},
       {u"x", 0},
       "Sub A(): End Sub|Attribute A.VB_Description = \"x\""},
      {"brackets",
       "Sub [Stop]()|Attribute [Stop].VB_Description = \"x\"|End Sub|",
       Description,
       {u"x", 0},
       {u"y", 0},
       "Sub [Stop]()|Attribute [Stop].VB_Description = \"y\"|End Sub|"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.szName);
    const auto pDocument = Opened(oRow.szBefore);
    EXPECT_TRUE(pDocument->Attribute(1, oRow.eAttribute) == oRow.oOld);
    const std::string sIndex = IndexText(*pDocument);
    pDocument->SetAttribute(1, oRow.eAttribute, oRow.oNew);
    EXPECT_EQ(pDocument->Bytes(), Joined(oRow.szAfter));
    EXPECT_EQ(pDocument->IsChanged(), pDocument->Bytes() != Joined(oRow.szBefore));
    EXPECT_EQ(IndexText(*pDocument), sIndex);
    pDocument->SetAttribute(1, oRow.eAttribute, oRow.oOld);
    EXPECT_TRUE(pDocument->Attribute(1, oRow.eAttribute) == oRow.oOld);
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
      "VERSION 5.00|Object = \"{A}#1.0#0\"; \"A.OCX\"|Begin VB.MDIForm Main |   Caption = \"It's "
      "\"\"x\"\"\" 'c|"
      "   BeginProperty Font {B} |      Name = \"F\"|   EndProperty|   Begin VB.Menu mnu |      "
      "Caption = \"m\"|"
      "      Begin VB.Menu sub1 |      End|   End|   MDIChild = -1  'True|End|attribute VB_Name = "
      "\"Main\"|"
      "Attribute VB_Exposed = False|Attribute VB_Ext_KEY = \"K\" ,\"V\"||Dim a|");
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
  const struct {
    const char* szName;
    const char* szBytes;
    std::int32_t lLines;
  } aoRow[] = {
      {"no attributes", "VERSION 2.00|Begin Form F|End|Sub A()|End Sub|", 2},
      {"version only", "VERSION 1.0 CLASS", 0},
      {"block never closed", "VERSION 5.00|Begin VB.Form F|x = 1|", 0},
      {"block never closed, attributes",
       "VERSION 5.00|Begin VB.Form F|Attribute VB_Name = \"F\"|Dim a|", 1},
      {"closed too often", "VERSION 5.00|Begin VB.Form F|End|End|Dim a|", 2},
      {"no block", "VERSION 1.0 CLASS|Attribute VB_Name = \"A\"|Dim a|", 1},
      {"attribute below", "Dim a|Attribute VB_Name = \"A\"|", 2},
      {"hidden at once", "Attribute A.VB_X = 1|Attribute B.VB_X = 2|Dim a", 1},
      {"byte-order mark",
       "\xEF\xBB\xBF"
       "Attribute VB_Name = \"A\"|Dim a",
       1},
  };
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.szName);
    const auto pDocument = Opened(oRow.szBytes);
    EXPECT_EQ(pDocument->CountOfLines(), oRow.lLines);
    pDocument->InsertLines(1, u"x");
    pDocument->DeleteLines(1, 1);
    EXPECT_EQ(pDocument->Bytes(), Joined(oRow.szBytes));
    EXPECT_FALSE(pDocument->IsChanged());
  }
}

}  // namespace
