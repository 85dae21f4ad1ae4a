// Judges procedures of the open group: what the rules suggest, and what a refresh and a removal
// would do with each template that is there, tried in memory. Nothing is saved.
//
//   GroupCheck check(handler, engine, rules, places);
//   for (const ProcedureHandle h : procedures) check.Procedure(h);
//   const CheckResult result = check.Finish();
//
// Pending becomes what is suggested, and at the end declarations may be rewritten in the module:
// the model is of no use for a rewrite behind it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "CIDEHandler.h"
#include "CTemplate.h"
#include "Finding.h"
#include "RuleSelection.h"
#include "TrialFindings.h"

/// Where things stand in files.
class IFilePlaces {
 public:
  virtual ~IFilePlaces() = default;
  /// Path of a component's first file as it is shown; empty when it has none.
  virtual std::string FileOf(ComponentHandle component) = 0;
  /// Line in its file, from 1, of a line of the procedure's text, from 1; of its head for 0.
  virtual std::int32_t LineOf(ProcedureHandle procedure, std::size_t textLine) = 0;
};

class GroupCheck {
 public:
  /// All outlive this object.
  GroupCheck(CIDEHandler& handler, const CTemplate& engine, const RuleSelection& rules,
             IFilePlaces& places)
      : mHandler(handler), mEngine(engine), mRules(rules), mPlaces(places) {}

  void Procedure(ProcedureHandle procedure);
  /// A file that can't be read; told once, whoever names it.
  void Unreadable(ComponentHandle component, std::string reason);
  /// The same of a project, which isn't in the model.
  void Unreadable(std::string file, std::int32_t line, std::string reason);
  void ReadOnly(ComponentHandle component, bool isPassedOver);
  /// How many procedures of a component conditional compilation leaves out.
  void Inactive(std::size_t procedures) { mResult.passedOver.inactive += procedures; }
  /// line: in the component's file, from 1.
  void ConflictingConstants(ComponentHandle component, std::int32_t line, std::string message);
  /// The component's file belongs to an earlier project.
  void Shared() { ++mResult.passedOver.sharedFiles; }

  /// Sorted.
  [[nodiscard]] CheckResult Finish();

 private:
  void Foreign(ProcedureHandle procedure);
  void Own(ProcedureHandle procedure);
  void SettingsFinding(ProcedureHandle procedure, const Trial& trial);
  void TryInModule(ProcedureHandle procedure);
  void AddAt(ProcedureHandle procedure, const TrialFinding& found);
  void Add(Finding finding);
  Finding At(CheckRule rule, ComponentHandle component);
  void AddFingerprints();
  const std::string* Kept(const std::string& file);

  CIDEHandler& mHandler;
  const CTemplate& mEngine;
  const RuleSelection& mRules;
  IFilePlaces& mPlaces;
  CheckResult mResult;
  std::vector<ProcedureHandle> mDeclarations;  ///< to be tried in their modules, at the end
  std::map<std::string, const std::string*> mFiles;
  std::set<const std::string*> mUnreadable;
  ComponentHandle mComponent{};  ///< whose file mFile is
  const std::string* mFile = nullptr;
};
