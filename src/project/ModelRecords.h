// The records of the model and the rows that its walks report. Handles are indices from 1, 0 means
// none; in a range -1 stands for empty.
#pragma once

#include <cstdint>

#include "CProcSettings.h"
#include "Text.h"
#include "VBProject.h"

struct ProjectRecord {
  VBProject* oProject = nullptr;
  std::int32_t lFirstComponent = -1, lLastComponent = -1;
};

/// Why a component can't be read.
struct LoadError {
  Text sErrorContext;
  std::int32_t lError = 0;
  Text sErrorDesc;
  Text sErrorSource;
};

struct ComponentRecord {
  std::int32_t hProject = 0;
  VBComponent* oComponent = nullptr;
  std::int32_t lFolderType = 0;
  Text sName;
  std::int32_t lInstancing = 0;
  Text sDesignerName;
  bool bPublicClass = false;
  bool bReadOnly = false;
  bool bLoaded = false;
  bool bLoadError = false;
  LoadError oError;
  std::int32_t lFirstEventSource = -1, lLastEventSource = -1;
  std::int32_t hDeclarations = 0;
  std::int32_t lFirstProcedure = -1, lLastProcedure = -1;
  std::int32_t lFirstInterface = -1, lLastInterface = -1;
};

struct EventSourceRecord {
  std::int32_t hComponent = 0;
  Text sName;
};

struct ProcedureRecord {
  std::int32_t hComponent = 0;
  Member* oMember = nullptr;  ///< null for a declarations record
  ProcKind nKind = ProcKind::Method;
  // Both point into the model's store of type names: few texts, many records.
  TextView sProcType{};  ///< shown type: the event's name for an event handler
  TextView sDeclType{};  ///< the type by declaration
  bool bEventHandler = false;
  CProcSettings oPending{}, oCurrent{}, oSuggest{};
};

struct ComponentRow {
  std::int32_t hComponent = 0;
  ComponentType nComponentType = ComponentType::Unknown;
  Text sName;
  std::int32_t lInstancing = 0;
  bool bReadOnly = false;
  std::int64_t dModified = 0;  ///< seconds since 1970, 0: none
  Text sFileName;
};

struct ProcedureRow {
  std::int32_t hProcedure = 0;
  bool bDirty = false;
  Text sPROCEDURE;
  TextView sProcType;
  MemberScope nScope = MemberScope::Unset;
  const CProcSettings* oProcSettings = nullptr;
};
