#include "ProjectFile.h"

#include <gtest/gtest.h>

namespace {

// A project as one line: type, name, constants, then the components as type:name:path, the notes.
std::string Shown(const ProjectFile& oFile) {
  Text sShown = (oFile.bProject ? u"" : u"no ") + ToText(MQuillon::ToNumber(oFile.nType)) + u" " +
                oFile.sName;
  for (const auto& oConstant : oFile.oConstants)
    sShown += u" " + oConstant.sName + u"=" + ToText(oConstant.lValue);
  for (const auto& oEntry : oFile.oComponents)
    sShown +=
        u" " + ToText(MQuillon::ToNumber(oEntry.nType)) + u":" + oEntry.sName + u":" + oEntry.sPath;
  for (const auto& oNote : oFile.oNotes)
    sShown += u" !" + ToText(static_cast<long long>(oNote.lLine));
  return ToUtf8(sShown);
}

struct Row {
  const char* sName;
  Text sText;
  const char* sExpected;
};

TEST(ProjectFile, ReadsWhatProjectsHold) {
  const Row Rows[] = {
      {"plain", u"Type=Exe\r\nName=\"Orders\"\r\nModule=A; a.bas\r\nForm=f.frm\r\n",
       "0 Orders 1:A:a.bas 5::f.frm"},
      {"each project type", u"type = OleExe\nTYPE=\"OleDll\"\nType=!Control!", "3 Project1"},
      {"each kind of component",
       u"Type=OleDll\nModule=M; m\nClass=C; c\nForm=f\nUserControl=u\nPropertyPage=p\n"
       u"UserDocument=d\nDesigner=r\nRelatedDoc=..\\x.doc\nResFile32=\"a b.res\"",
       "2 Project1 1:M:m 2:C:c 5::f 8::u 7::p 9::d 11::r 10::..\\x.doc 4::a b.res"},
      {"byte-order mark, blanks, lone line ends", u"\uFEFFType=Exe \n\n  Form = a b.frm\t\r",
       "0 Project1 5::a b.frm"},
      {"components end at a section", u"Type=Exe\n[VBCompiler]\nForm=a.frm\nName=\"X\"",
       "0 Project1"},
      {"only the outer quotes go", u"Type=Exe\nName=\"\"A\"\"\nCommand32=\"\"a b\"\"", "0 \"A\""},
      {"semicolon in a form's path, none in a module's", u"Type=Exe\nForm=a;b.frm\nModule=m.bas",
       "0 Project1 5::a;b.frm 1::m.bas"},
      {"constants", u"Type=Exe\nCondComp=\"Demo = -1 : MAX=&HFF : b = True:c=0\"",
       "0 Project1 demo=-1 max=255 b=-1 c=0"},
      {"bad constants are told",
       u"Type=Exe\nCondComp=\"a : = 1 : b = x : c = 99999999999 :: d = 2\"",
       "0 Project1 d=2 !2 !2 !2 !2"},
      {"a second component of a name", u"Type=Exe\nModule=A; a.bas\nClass=a; b.cls",
       "0 Project1 1:A:a.bas !3"},
      {"a second resource file", u"Type=Exe\nResFile32=\"a.res\"\nResFile32=\"b.res\"",
       "0 Project1 4::a.res !3"},
      {"entries without a file", u"Type=Exe\nForm=\nModule=A;\nClass=\"\"\nModule=A; a.bas",
       "0 Project1 1:A:a.bas !2 !3 !4"},
      {"a NUL in a path", Text(u"Type=Exe\nForm=a.frm\0.txt\nForm=b\0", 32), "0 Project1 !2 !3"},
      {"unknown type", u"Type=Game\nForm=a.frm", "0 Project1 5::a.frm !1 !0"},
      {"no type", u"Form=a.frm", "0 Project1 5::a.frm !0"},
      {"lines that are nothing", u"=\n==\nnonsense\n;\nFormx=a\nType=Exe", "0 Project1"},
      {"something else", u"MZ\x90\x3\nName=\"X\"\n", "no 0 X"},
      {"nothing", u"", "no 0 Project1"},
  };
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_EQ(Shown(ProjectFile::Parse(oRow.sText)), oRow.sExpected);
  }
}

TEST(GroupFile, ListsProjectsInTheirOrder) {
  const Row Rows[] = {
      {"plain", u"VBGROUP 5.0\r\nProject=b.vbp\r\nStartupProject=..\\A b\\a.vbp\r\n",
       "2:b.vbp 3:..\\A b\\a.vbp "},
      {"no header, quotes, case, unknown keys", u"PROJECT = \"x.vbp\"\nOther=1\nnothing",
       "1:x.vbp "},
      {"empty entries are told", u"VBGROUP 5.0\nProject=\nProject=\"\"", "!2 !3 "},
  };
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    GroupFile oGroup = GroupFile::Parse(oRow.sText);
    std::string sShown;
    for (const auto& oEntry : oGroup.oProjects)
      sShown += std::to_string(oEntry.lLine) + ':' + ToUtf8(oEntry.sPath) + ' ';
    for (const auto& oNote : oGroup.oNotes) sShown += '!' + std::to_string(oNote.lLine) + ' ';
    EXPECT_EQ(sShown, oRow.sExpected);
  }
}

}  // namespace
