// The signature line: the one line in a procedure that names its template and says whether it is
// locked. It is made from the first row behind <#Start> of the file's first template, whatever
// that template's type, and found again by the patterns of that template's rows.
// Signature text: the name, "Name&Locked", or "Locked" alone.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ProcText.h"
#include "TemplateRows.h"
#include "Text.h"
#include "TokenReader.h"

/// What a signature line says. name is in lower case, empty for a lock without a template.
struct SignatureValue {
  Text name;
  bool locked = false;
};

class Signature {
 public:
  /// Both tables must outlive this object.
  Signature(const std::vector<TemplateRow>& templates, const std::vector<LineRow>& lines);

  /// The whole line without a line end; empty when there is neither a name nor a lock.
  Text Line(TextView name, bool locked) const;
  /// True when a line written by Line() would be read back as what was written.
  bool IsReadable(TextView name, bool locked) const;
  /// folded: FullTrim, lower case. True when it fits a row of the signature template.
  bool IsSignature(TextView folded) const;
  /// What a folded line says; nullopt when it is no signature or yields no value.
  std::optional<SignatureValue> Read(TextView folded) const;
  /// The first signature of a text; the search covers all of it.
  std::optional<SignatureValue> Find(TextView procCode) const;
  std::optional<SignatureValue> Find(const ProcText& code) const;
  /// Index of the first line that names a template; Count() when there is none.
  std::size_t FindNamed(const ProcText& code) const;
  /// Takes over the lines of a text but for those that lock a procedure and name no template.
  /// headLine follows the lines that go ahead of it.
  ProcText WithoutLocks(const ProcText& code, std::int32_t& headLine) const;

 private:
  struct Row {
    const LineRow* row;
    TokenReader reader;
    Text begin;  ///< what its pattern begins with, up to a blank or anything variable
    bool wide;   ///< the pattern holds nothing to tell a signature from any comment
  };
  /// False when no row's pattern can fit a line that begins, behind its blanks, like this.
  bool MayBegin(TextView line) const;
  std::optional<SignatureValue> ReadRow(const Row& row, TextView folded) const;

  // The answer of IsReadable for the name asked last: a run asks for one name over and over.
  mutable Text mAsked;
  mutable bool mAskedLocked = false;
  mutable bool mReadable = false;
  // The line that fitted a row last, folded, and its value: most procedures hold one and the same.
  mutable Text mLine;
  mutable std::optional<SignatureValue> mValue;

  const LineRow* mFirst = nullptr;
  std::vector<Row> mRows;
  bool mComments = false;  ///< all patterns begin with an apostrophe
};
