// The records of the model and the rows that its walks report. In a range -1 stands for empty.
#pragma once

#include <cstdint>

#include "CProcSettings.h"
#include "Handle.h"
#include "Text.h"
#include "VBProject.h"

struct ProjectRecord {
  VBProject* oProject = nullptr;
  ComponentHandle lFirstComponent{-1}, lLastComponent{-1};
};

/// Why a component can't be read.
struct LoadError {
  Text sErrorContext;
  std::int32_t lError = 0;
  Text sErrorDesc;
  Text sErrorSource;
};

struct ComponentRecord {
  ProjectHandle hProject;
  VBComponent* oComponent = nullptr;
  std::int32_t lFolderType = 0;
  Text sName;
  std::int32_t lInstancing = 0;
  Text sDesignerName;
  bool bPublicClass = false;
  bool bReadOnly = false;
  /// Why the IDE won't write it, though its file could be; empty elsewhere.
  Text readOnlyReason;
  bool bLoaded = false;
  bool bLoadError = false;
  LoadError oError;
  std::int32_t lFirstEventSource = -1, lLastEventSource = -1;
  ProcedureHandle hDeclarations;
  ProcedureHandle lFirstProcedure{-1}, lLastProcedure{-1};
  std::int32_t lFirstInterface = -1, lLastInterface = -1;
};

struct EventSourceRecord {
  ComponentHandle hComponent{};
  Text sName;
};

struct ProcedureRecord {
  ComponentHandle hComponent{};
  ProcKind nKind = ProcKind::Method;
  bool bEventHandler = false;
  bool bHandlerNoCase = false;  ///< its name fits an event source, but not in letter case
  /// Without a template at the time of loading: the code reads Err and no On Error stands ahead.
  bool bReadsErr = false;
  /// What a property's own head states: the member has one scope for its Let, Set and Get.
  MemberScope headScope = MemberScope::Unset;
  Member* oMember = nullptr;  ///< null for a declarations record
  // Both point into the model's store of type names: few texts, many records.
  TextView sProcType{};  ///< shown type: the event's name for an event handler
  TextView sDeclType{};  ///< the type by declaration
  CProcSettings oPending{}, oCurrent{}, oSuggest{};
};

/// The scope to be shown, none for declarations. Asks the IDE, except for a property.
inline MemberScope ScopeOf(const ProcedureRecord& record) {
  if (record.headScope != MemberScope::Unset || !record.oMember) return record.headScope;
  return record.oMember->Scope();
}

inline bool IsDirty(const ProcedureRecord& record) {
  return !record.oPending.Equals(record.oCurrent);
}

struct ComponentRow {
  ComponentHandle hComponent{};
  ComponentType nComponentType = ComponentType::Unknown;
  Text sName;
  std::int32_t lInstancing = 0;
  bool bReadOnly = false;
  std::int64_t dModified = 0;  ///< seconds since 1970, 0: none
  Text sFileName;
  bool isMissing = false;  ///< the file has a name, but isn't there
};

struct ProcedureRow {
  ProcedureHandle hProcedure{};
  bool bDirty = false;
  Text sPROCEDURE;
  TextView sProcType;
  MemberScope nScope = MemberScope::Unset;
  const CProcSettings* oProcSettings = nullptr;
};
