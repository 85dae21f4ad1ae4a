// What a template file says, ready for rewriting: the two tables, and what is worked out from them
// once, behind a load, so that no rewrite has to.
//
//   TemplateSet set;            // filled by TemplateLoader, which calls Prepare at its end
//   const TemplateRow* row = set.Find(u"standard");
//   set.Signatures().Find(code);
//
// Rows of both tables count from 1; row 0 is empty and means no row.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <unordered_set>
#include <vector>

#include "Signature.h"
#include "TemplateRows.h"
#include "Text.h"

struct SectionValues;

class TemplateSet {
 public:
  TemplateSet() : templates(1), lines(1) { Prepare(); }

  /// To be called behind each change of the tables.
  void Prepare();
  /// The template of that name without regard to case, the first one; null when there is none.
  const TemplateRow* Find(TextView name) const;
  const LineRow& Row(std::int32_t row) const { return lines[static_cast<std::size_t>(row)]; }
  const Signature& Signatures() const { return *mSignature; }

  /// True for a name, in lower case, that a module template declares.
  bool IsModuleName(const Text& name) const { return mModuleNames.contains(name); }
  /// True when a row names the project or the source file.
  bool NamesOrigin() const { return mNamesOrigin; }
  /// The names of a template whose names vary, as it is written with these values.
  NamesInTemplate NamesFor(const TemplateRow& row, const SectionValues& values) const;
  /// True when a row holds a CR or LF of its own.
  bool HoldsLineEnd() const { return mHoldsLineEnd; }

  std::vector<TemplateRow> templates;
  std::vector<LineRow> lines;

 private:
  /// Between #Start and #End; none of a template that lacks one of them.
  std::span<const LineRow> RowsOf(const TemplateRow& row) const;

  bool mHoldsLineEnd = false;
  bool mNamesOrigin = false;
  std::unordered_set<Text> mModuleNames;
  std::unique_ptr<Signature> mSignature;
};
