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

/// What a signature line says. sTemplate is in lower case, empty for a lock without a template.
struct SignatureValue {
  Text sTemplate;
  bool bLocked = false;
};

/// Values of the tokens of a template line, found by walking it and a code line side by side.
/// Both lines are given in lower case, sTemplateLine with FullTrim. nullopt when the token isn't
/// in the template line, stands there twice, or has no place in the code line.
std::optional<Text> ExtractTokenValue(TextView sTemplateLine, TextView sCodeLine, TextView sToken);

class Signature {
 public:
  Signature(const std::vector<TemplateRow>& oTemplates, const std::vector<LineRow>& oLines);

  /// The whole line without a line end; empty when there is neither a name nor a lock.
  Text Line(TextView sTemplate, bool bLocked) const;
  /// True when a line written by Line() would be read back as what was written.
  bool IsReadable(TextView sTemplate, bool bLocked) const;
  /// sFolded: FullTrim, lower case. True when it fits a row of the signature template.
  bool IsSignature(TextView sFolded) const;
  /// What a folded line says; nullopt when it is no signature or yields no value.
  std::optional<SignatureValue> Read(TextView sFolded) const;
  /// The first signature of a text; the search covers all of it.
  std::optional<SignatureValue> Find(TextView sProcCode) const;

 private:
  struct Row {
    const LineRow* pRow;
    Text sFolded;  ///< the row's text, FullTrim, lower case
    Text sBegin;   ///< what its pattern begins with, up to a blank or anything variable
    bool bWide;    ///< the pattern holds nothing to tell a signature from any comment
  };
  /// False when no row's pattern can fit a line that begins, behind its blanks, like this.
  bool MayBegin(TextView sLine) const;
  std::optional<SignatureValue> ReadRow(const Row& oRow, TextView sFolded) const;

  // The answer of IsReadable for the name asked last: a run asks for one name over and over.
  mutable Text msAsked;
  mutable bool mbAskedLocked = false;
  mutable bool mbReadable = false;

  const LineRow* mpFirst = nullptr;
  std::vector<Row> moRows;
  bool mbComments = false;  ///< all patterns begin with an apostrophe
};
