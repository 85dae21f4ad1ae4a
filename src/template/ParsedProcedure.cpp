#include "ParsedProcedure.h"

#include "CodeSettings.h"
#include "MQuillon.h"

namespace {

std::size_t parsedTexts = 0;

}  // namespace

ParsedProcedure::ParsedProcedure(const TemplateSet& templates, TextView text,
                                 const ProcedureName& name, std::int32_t headLine)
    : mTemplates(templates), mText(text), mName(name), mHeadLine(headLine), mCode(text) {
  ++parsedTexts;
  mSigned = CodeSettings::Read(templates, text, mCode, mSettings);
}

bool ParsedProcedure::IsDeclarations() const {
  return mName.name == MQuillon::DeclarationsName;
}

TextView ParsedProcedure::BaseTypeName() const {
  return IsDeclarations() ? TextView() : BaseType(mName.type);
}

SectionValues ParsedProcedure::NameValues() const {
  const TextView kind = IsDeclarations() ? TextView() : PropertyKind(mName.type);
  return {.moduleName = mName.module,
          .shownName = ShownName(mName.name, kind),
          .baseType = BaseTypeName(),
          .name = mName.name,
          .project = mName.project,
          .file = mName.file};
}

std::size_t ParsedProcedure::Count() {
  return parsedTexts;
}
