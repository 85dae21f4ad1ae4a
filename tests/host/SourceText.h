// Source documents from short texts: "|" stands for a line end, "\n" and the like for single bytes.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Failure.h"
#include "SourceDocument.h"
#include "TableRows.h"

inline std::string Joined(std::string_view sRow, std::string_view sEnd = "\r\n") {
  std::string sBytes;
  for (const char c : sRow) c == '|' ? sBytes.append(sEnd) : sBytes.append(1, c);
  return Unescaped(sBytes);
}

inline std::unique_ptr<SourceDocument> Opened(std::string_view sRow, const char* szPage = "1252",
                                              std::string_view sEnd = "\r\n") {
  return std::make_unique<SourceDocument>(Joined(sRow, sEnd), CodePage::Get(szPage), true,
                                          std::vector<CondConstant>{{u"demo", -1}, {u"level", 3}});
}

/// "D" and the lines of declarations; then each member with type letter, scope, name, line, and
/// "kind:start/body/count" for its procedures; "H" and the number of those in inactive branches.
inline std::string IndexText(const SourceDocument& oDocument) {
  std::string sIndex = "D" + std::to_string(oDocument.CountOfDeclarationLines());
  for (std::int32_t l = 1; l <= oDocument.MemberCount(); ++l) {
    const auto o = oDocument.MemberAt(l);
    sIndex += std::string(" ") + " mpvec"[MQuillon::ToNumber(o.nType)] +
              std::to_string(MQuillon::ToNumber(o.nScope)) + ToUtf8(o.sName) + "@" +
              std::to_string(o.lLine);
    for (const ProcKind k : MQuillon::CodeKinds) try {
        sIndex += "," + std::to_string(MQuillon::ToNumber(k)) + ":" +
                  std::to_string(oDocument.ProcStartLine(o.sName, k)) + "/" +
                  std::to_string(oDocument.ProcBodyLine(o.sName, k)) + "/" +
                  std::to_string(oDocument.ProcCountLines(o.sName, k));
      } catch (const Failure& oFailure) {
        EXPECT_EQ(oFailure.Number(), 35);
        while (sIndex.back() == ',') sIndex.pop_back();
      }
  }
  if (const auto hidden = oDocument.HiddenProcedures()) sIndex += " H" + std::to_string(hidden);
  return sIndex;
}
