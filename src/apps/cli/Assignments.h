// What apply is told to set: the values of --set, checked against the words and the template file,
// and how they reach the Pending settings of a procedure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CIDEHandler.h"
#include "Display.h"

class Session;

class Assignments {
 public:
  /// Checks names and values of all properties but Template. Stop with what is allowed.
  explicit Assignments(const std::vector<std::string>& asSet);
  /// Checks the template's name against the file that is open. Stop as above.
  void CheckTemplate(const Session& oSession);

  /// How many procedures took no setting, by reason.
  struct Passed {
    std::size_t lLocked = 0, lForeign = 0, lNoTemplate = 0;
  };
  /// Fills Pending of a procedure. A lock is taken off ahead of all other settings and put on
  /// behind them, so that their order on the command line makes no difference.
  void Apply(Session& oSession, ProcedureHandle hProcedure, Passed& oPassed) const;

 private:
  struct Value {
    std::string sText;
    std::int32_t lId = 0;
  };
  const std::optional<Value>& Of(Property eProperty) const {
    return moValues[static_cast<std::size_t>(eProperty)];
  }
  void Add(const std::string& sSet);
  void SetTemplate(Session& oSession, ProcedureHandle hProcedure) const;
  void SetOthers(Session& oSession, ProcedureHandle hProcedure, Passed& oPassed) const;

  std::array<std::optional<Value>, AllProperties.size()> moValues;
  // The template's name as the file writes it, for the records that it is for; empty for none.
  std::optional<Text> moForModules, moForProcedures;
};
