#include "Scope.h"

#include <algorithm>

#include "Console.h"

Scope::Scope(const Arguments& oArguments)
    : moProject(Prepare(oArguments.asProject)),
      moComponent(Prepare(oArguments.asComponent)),
      moProcedure(Prepare(oArguments.asProcedure)),
      moType(Prepare(oArguments.asType)),
      mbWholeGroup(moProject.empty() && moComponent.empty() && moProcedure.empty() &&
                   moType.empty()) {}

Scope::Patterns Scope::Prepare(const std::vector<std::string>& asPattern) {
  Patterns oPatterns;
  for (const std::string& sPattern : asPattern) {
    oPatterns.emplace_back(LowerCase(FromUtf8(sPattern)));
    if (!oPatterns.back().IsValid())
      throw Stop{"Not a valid pattern: " + sPattern +
                 " (a list in [ ] must be closed and its ranges must ascend)"};
  }
  return oPatterns;
}

bool Scope::Fits(const Patterns& oPatterns, TextView sText) {
  if (oPatterns.empty()) return true;
  Text sLower = LowerCase(sText);
  return std::any_of(oPatterns.begin(), oPatterns.end(),
                     [&](const LikePattern& oPattern) { return oPattern.Matches(sLower); });
}

bool Scope::TakesComponent(TextView sProject, TextView sComponent) const {
  return Fits(moProject, sProject) && Fits(moComponent, sComponent);
}

bool Scope::TakesProcedure(TextView sName, TextView sType) const {
  return Fits(moProcedure, sName) && Fits(moType, sType);
}
