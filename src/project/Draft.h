// The text of one procedure or declarations section on its way from the IDE through the engine
// and back.
//
// Blank lines at the end never go through the engine: those of the IDE's text stay in the module
// untouched, and those that a removal lays bare are kept apart and go back line by line. So no
// text that ends in a line end is ever inserted, which IDEs take in different ways.
#pragma once

#include "CIDEHandler.h"

struct CIDEHandler::Draft {
  Text sModuleName, sProcName;
  Text sOld;  ///< as the IDE gave it, but for blank lines at its end
  Text sNew;
  std::int32_t lBlankLines = 0;  ///< to be put behind sNew
  std::int32_t lBodyStart = 1;
  Text sBare;              ///< without any template: what the insertion started from
  bool bInserted = false;  ///< a template was put in
  bool bInherit = false;   ///< that template inherits the module's values

  bool IsChanged() const { return sNew != sOld || lBlankLines != 0; }
};
