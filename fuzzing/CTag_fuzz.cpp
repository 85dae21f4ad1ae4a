// The text of a directive: any input gives one of the four codes, a name without blanks, and the
// same result when it is read again.
#include <cstdlib>

#include "CTag.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t lSize) {
  const Text sTag = FromUtf8({reinterpret_cast<const char*>(pBytes), lSize});
  CTag oTag, oAgain;
  oTag.SetTag(sTag);
  oAgain.SetTag(u"<#Other name=left like='behind'>");
  oAgain.SetTag(sTag);
  if (oTag.Error() < 0 || oTag.Error() > 3) std::abort();
  if (oTag.Name().find(u' ') != Text::npos) std::abort();
  if (oTag.Name() != oAgain.Name() || oTag.Error() != oAgain.Error()) std::abort();
  for (TextView sKey : {u"name", u"type", u"like", u"inherit"}) {
    if (oTag.Parameter(sKey) != oAgain.Parameter(sKey)) std::abort();
  }
  return 0;
}
