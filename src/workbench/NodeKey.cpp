#include "NodeKey.h"

#include <limits>

#include "MXString.h"

namespace NodeKey {

Text Project(ProjectHandle hProject) {
  return u"VBProject." + ToText(hProject.Number()) + u".";
}

Text Folder(ProjectHandle hProject, std::int32_t lFolder) {
  return Project(hProject) + ToText(lFolder) + u".";
}

Text Component(TextView sView, ProjectHandle hProject, std::int32_t lFolder,
               ComponentHandle hComponent) {
  const Text sAbove = sView == List ? Project(hProject) : Folder(hProject, lFolder);
  return sAbove + ToText(hComponent.Number()) + u".";
}

Fields Read(TextView sKey, TextView sView) {
  TextArray asField;
  MXString::StringTokenize(sKey, asField, u".", false);
  const auto Field = [&](std::size_t i) { return i < asField.size() ? Number(asField[i]) : 0; };
  const ProjectHandle hProject(Field(2));
  if (sView == List) return {hProject, 0, ComponentHandle(Field(3))};
  return {hProject, Field(3), ComponentHandle(Field(4))};
}

std::int32_t Number(TextView sText) {
  std::int64_t lNumber = 0;
  for (const char16_t c : sText) {
    if (c < u'0' || c > u'9') break;
    lNumber = lNumber * 10 + (c - u'0');
    if (lNumber > std::numeric_limits<std::int32_t>::max()) return 0;
  }
  return static_cast<std::int32_t>(lNumber);
}

}  // namespace NodeKey
