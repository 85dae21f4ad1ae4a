// The rows of a hand-written handler as a template has them: tokens stand for
// the names of the procedure, and numbers for its labels where only the shape
// counts.
//
//   FrameText frame({u"Files", u"Load", u"Sub"}, {u"load_err"});
//   frame.RowOf(u"LogError Err.Number, \"Files.Load\"")
//       // key:  logerror err.number, "..."
//       // text: LogError Err.Number, "<%ModuleName>.<%Name>"
#pragma once

#include <span>

#include "OwnHandler.h"
#include "Text.h"

class FrameText {
 public:
  /// labels: in lower case. Both outlive this object.
  FrameText(const ProcedureName& name, std::span<const Text> labels);

  /// source: a statement on one line, without comment and line number.
  FrameRow RowOf(TextView source) const;

 private:
  struct NameToken {
    Text name;
    TextView token;
  };
  void AddCode(TextView code, FrameRow& row) const;
  Text Filled(TextView literal) const;

  std::span<const Text> mLabels;
  Text mName, mExit;
  std::vector<NameToken> mTokens;  ///< in the order in which they are looked for
};
