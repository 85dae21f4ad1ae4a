#include "ProjectFile.h"

#include <gtest/gtest.h>

#include "TableRows.h"

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

TEST(ProjectFile, ReadsWhatProjectsHold) {
  for (const auto& as : Rows(R"(
    plain                                          ~ Type=Exe\r\nName="Orders"\r\nModule=A; a.bas\r\nForm=f.frm\r\n ~ 0 Orders 1:A:a.bas 5::f.frm
    each project type                              ~ type = OleExe\nTYPE="OleDll"\nType=!Control! ~ 3 Project1
    each kind of component                         ~ Type=OleDll\nModule=M; m\nClass=C; c\nForm=f\nUserControl=u\nPropertyPage=p\nUserDocument=d\nDesigner=r\nRelatedDoc=..\\x.doc\nResFile32="a b.res" ~ 2 Project1 1:M:m 2:C:c 5::f 8::u 7::p 9::d 11::r 10::..\x.doc 4::a b.res
    byte-order mark, blanks, lone line ends        ~ \xEF\xBB\xBFType=Exe \n\n  Form = a b.frm\t\r ~ 0 Project1 5::a b.frm
    components end at a section                    ~ Type=Exe\n[VBCompiler]\nForm=a.frm\nName="X" ~ 0 Project1
    only the outer quotes go                       ~ Type=Exe\nName=""A""\nCommand32=""a b"" ~ 0 "A"
    semicolon in a form's path, none in a module's ~ Type=Exe\nForm=a;b.frm\nModule=m.bas ~ 0 Project1 5::a;b.frm 1::m.bas
    constants                                      ~ Type=Exe\nCondComp="Demo = -1 : MAX=&HFF : b = True:c=0" ~ 0 Project1 demo=-1 max=255 b=-1 c=0
    bad constants are told                         ~ Type=Exe\nCondComp="a : = 1 : b = x : c = 99999999999 :: d = 2" ~ 0 Project1 d=2 !2 !2 !2 !2
    a second component of a name                   ~ Type=Exe\nModule=A; a.bas\nClass=a; b.cls ~ 0 Project1 1:A:a.bas !3
    a second resource file                         ~ Type=Exe\nResFile32="a.res"\nResFile32="b.res" ~ 0 Project1 4::a.res !3
    entries without a file                         ~ Type=Exe\nForm=\nModule=A;\nClass=""\nModule=A; a.bas ~ 0 Project1 1:A:a.bas !2 !3 !4
    a NUL in a path                                ~ Type=Exe\nForm=a.frm\x00.txt\nForm=b\x00 ~ 0 Project1 !2 !3
    unknown type                                   ~ Type=Game\nForm=a.frm ~ 0 Project1 5::a.frm !1 !0
    no type                                        ~ Form=a.frm ~ 0 Project1 5::a.frm !0
    lines that are nothing                         ~ =\n==\nnonsense\n;\nFormx=a\nType=Exe ~ 0 Project1
    something else                                 ~ MZ\xC2\x90\x03\nName="X"\n ~ no 0 X
    nothing                                        ~  ~ no 0 Project1)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    EXPECT_EQ(Shown(ProjectFile::Parse(FromUtf8(Unescaped(as[1])))), as[2]);
  }
}

TEST(GroupFile, ListsProjectsInTheirOrder) {
  for (const auto& as : Rows(R"(
    plain                                 ~ VBGROUP 5.0\r\nProject=b.vbp\r\nStartupProject=..\\A b\\a.vbp\r\n ~ 2:b.vbp 3:..\A b\a.vbp
    no header, quotes, case, unknown keys ~ PROJECT = "x.vbp"\nOther=1\nnothing ~ 1:x.vbp
    empty entries are told                ~ VBGROUP 5.0\nProject=\nProject="" ~ !2 !3)",
                             '~')) {
    SCOPED_TRACE(as[0]);
    GroupFile oGroup = GroupFile::Parse(FromUtf8(Unescaped(as[1])));
    std::string sShown;
    for (const auto& oEntry : oGroup.oProjects)
      sShown += std::to_string(oEntry.lLine) + ':' + ToUtf8(oEntry.sPath) + ' ';
    for (const auto& oNote : oGroup.oNotes) sShown += '!' + std::to_string(oNote.lLine) + ' ';
    EXPECT_EQ(sShown, as[2] + " ");
  }
}

}  // namespace
