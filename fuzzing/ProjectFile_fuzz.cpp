// Project and group texts: what was read, written down again in the plain form, reads the same.
#include <cstdlib>

#include "CodePage.h"
#include "ProjectFile.h"

namespace {

constexpr TextView Keys[] = {u"",
                             u"Module",
                             u"Class",
                             u"",
                             u"ResFile32",
                             u"Form",
                             u"",
                             u"PropertyPage",
                             u"UserControl",
                             u"UserDocument",
                             u"RelatedDoc",
                             u"Designer"};
constexpr TextView Types[] = {u"Exe", u"OleExe", u"OleDll", u"Control"};

Text PlainForm(const ProjectFile& oFile) {
  Text sText = u"Type=" + Text(Types[static_cast<std::size_t>(oFile.nType)]) + u"\nName=\"" +
               oFile.sName + u"\"\n";
  for (const auto& oConstant : oFile.oConstants)
    sText += u"CondComp=\"" + oConstant.sName + u" = " + ToText(oConstant.lValue) + u"\"\n";
  for (const auto& oEntry : oFile.oComponents) {
    bool bNamed = oEntry.nType == ComponentType::StdModule || oEntry.nType == ComponentType::Class;
    Text sPath = u'"' + oEntry.sPath + u'"';
    if (bNamed) sPath = u'"' + oEntry.sName + u"; " + sPath + u'"';
    sText += Text(Keys[static_cast<std::size_t>(oEntry.nType)]) + u"=" + sPath + u"\n";
  }
  return sText;
}

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t lSize) {
  Text sText = CodePage::Get("1252").Decode({reinterpret_cast<const char*>(pData), lSize});
  ProjectFile oFile = ProjectFile::Parse(sText);
  ProjectFile oAgain = ProjectFile::Parse(PlainForm(oFile));
  Require(oAgain.oNotes.empty() && oAgain.sName == oFile.sName && oAgain.nType == oFile.nType);
  Require(oAgain.oConstants.size() == oFile.oConstants.size());
  Require(oAgain.oComponents.size() == oFile.oComponents.size());
  for (size_t i = 0; i < oFile.oComponents.size(); ++i) {
    Require(oAgain.oComponents[i].sPath == oFile.oComponents[i].sPath);
    Require(oAgain.oComponents[i].sName == oFile.oComponents[i].sName);
  }
  for (const auto& oEntry : GroupFile::Parse(sText).oProjects)
    Require(!oEntry.sPath.empty() && oEntry.sPath.find(u'\0') == Text::npos);
  return 0;
}
