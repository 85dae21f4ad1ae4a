#include "CTag.h"

#include <gtest/gtest.h>

namespace {

struct Row {
  const char* sName;
  TextView sTag;
  std::int32_t lError;
  const char* sRead;  ///< the name, then each key that has a value
};

std::string Read(const CTag& oTag) {
  std::string sRead = ToUtf8(oTag.Name());
  for (TextView sKey : {u"name", u"type", u"like", u"a", u"b", u"c"}) {
    const Text sValue = oTag.Parameter(sKey);
    if (!sValue.empty()) sRead += " " + ToUtf8(sKey) + "=[" + ToUtf8(sValue) + "]";
  }
  return sRead;
}

const Row atRow[] = {
    {"two words", u"<#Template name=Main type=procedure>", 0,
     "#Template name=[Main] type=[procedure]"},
    {"key in capitals", u"<#Template NAME=Main>", 0, "#Template name=[Main]"},
    {"no parameter", u"   <#End>", 0, "#End"},
    {"blank at the end", u"<#End >  ", 0, "#End"},
    {"nothing between the chevrons", u"<>", 0, ""},
    {"quotes of both kinds", u"<#S a='x y' b=\"it's 1\">", 0, "#S a=[x y] b=[it's 1]"},
    {"blanks inside quotes collapse", u"<#S like='x  y'>", 0, "#S like=[x y]"},
    {"blank kept at the ends of a value", u"<#S like=' x '>", 0, "#S like=[ x ]"},
    {"quote without a blank belongs to the value", u"<#S like='it's here'>", 0,
     "#S like=[it's here]"},
    {"empty quotes", u"<#S a='' b=2>", 0, "#S b=[2]"},
    {"equals sign in a value", u"<#S like='x = 1' a=b=c>", 0, "#S like=[x = 1] a=[b=c]"},
    {"first of two wins", u"<#S a=1 a=2>", 0, "#S a=[1]"},
    {"joined lines", u"<#S a=1\r\nb=2>", 0, "#S a=[1] b=[2]"},
    {"quote that isn't closed", u"<#S a=1 like='open>", 3, "#S a=[1]"},
    {"lone quote", u"<#S like='>", 3, "#S"},
    {"blank in a key stops", u"<#S a=1 b c=2 c=3>", 0, "#S a=[1]"},
    {"blank behind the equals sign", u"<#S a = 1 b=2>", 0, "#S"},
    {"blank ahead of the equals sign", u"<#S a =1 b=2>", 0, "#S a=[1] b=[2]"},
    {"word without a value ends the reading", u"<#S a=1 foo>", 0, "#S a=[1]"},
    {"no opening chevron", u"#S a=1>", 1, ""},
    {"no closing chevron", u"<#S a=1", 2, ""},
    {"text behind the chevron", u"<#S a=1> x", 2, ""},
    {"chevron alone", u"<", 2, ""},
    {"empty text", u"", 1, ""},
};

TEST(CTag, ReadsNameAndParameters) {
  CTag oTag;  // one for all rows: nothing of an earlier text may show
  for (const Row& oRow : atRow) {
    SCOPED_TRACE(oRow.sName);
    oTag.SetTag(oRow.sTag);
    EXPECT_EQ(oTag.Error(), oRow.lError);
    EXPECT_EQ(Read(oTag), oRow.sRead);
  }
}

}  // namespace
