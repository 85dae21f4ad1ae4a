// The text of one procedure, or of one declarations section, taken apart once: its lines in both
// forms, the places that a rewrite needs, and the settings that its code holds. All that the engine
// does with a text starts from here.
//
//   const ParsedProcedure procedure(templates, text, {u"CPrices", u"Load", u"Sub"}, 1);
//   procedure.Settings().sTemplate()
#pragma once

#include <cstddef>
#include <cstdint>

#include "CProcSettings.h"
#include "ProcPlaces.h"
#include "ProcText.h"
#include "Sections.h"
#include "TemplateSet.h"

/// Which procedure a text is. The views outlive what is made with them.
struct ProcedureName {
  TextView module;
  TextView name;  ///< "(declarations)" for a declarations section
  TextView type;  ///< Sub, Function, Property Get, Property Let or Property Set
  TextView project = {};
  TextView file = {};  ///< of the module, without its folder
};

class ParsedProcedure {
 public:
  /// headLine: number of the line, from 1 within the text, that begins the procedure's head; of no
  /// meaning for declarations. Templates and text must outlive this object.
  ParsedProcedure(const TemplateSet& templates, TextView text, const ProcedureName& name,
                  std::int32_t headLine);

  const TemplateSet& Templates() const { return mTemplates; }
  TextView Source() const { return mText; }
  const ProcText& Code() const { return mCode; }
  const ProcedureName& Name() const { return mName; }
  std::int32_t HeadLine() const { return mHeadLine; }
  bool IsDeclarations() const;
  TextView BaseTypeName() const;  ///< empty for declarations
  /// What names the procedure; the template's name and the settings are left empty.
  SectionValues NameValues() const;

  /// What the code holds, nothing inherited.
  const CProcSettings& Settings() const { return mSettings; }
  /// False when the code is known to hold no line that names a template or a lock.
  bool IsSigned() const { return mSigned; }

  /// How many texts were taken apart and had their settings read so far in this process: a rewrite
  /// looks at the old text once and, for the proof, at the new one.
  static std::size_t Count();

 private:
  const TemplateSet& mTemplates;
  TextView mText;
  ProcedureName mName;
  std::int32_t mHeadLine;
  ProcText mCode;
  CProcSettings mSettings;
  bool mSigned = false;
};
