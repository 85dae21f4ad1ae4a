// The settings file: reading changes no byte, a value that is set reads back, and every other
// value is as it was.
#include <cstdlib>
#include <string>

#include "RegistryDocument.h"

namespace {
void Require(bool bHolds) {
  if (!bHolds) std::abort();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pcBytes, size_t lCount) {
  const std::string sBytes(reinterpret_cast<const char*>(pcBytes), lCount);
  RegistryDocument oDocument(sBytes);
  Require(sBytes.empty() || oDocument.Bytes() == sBytes);
  const auto asName = oDocument.Names(u"HKEY_CURRENT_USER\\K");
  RegistryDocument oChanged = oDocument;
  oChanged.Set(u"HKEY_CURRENT_USER\\K", u"Fuzz\\\"", {RegistryValue::String, u"a\r\n\u00E9", 0});
  oChanged.Set(u"HKEY_CURRENT_USER\\K\\New", u"", {RegistryValue::Long, {}, -2});
  const RegistryDocument oAgain(oChanged.Bytes());
  Require(oAgain.Bytes() == oChanged.Bytes());
  Require(oAgain.Find(u"hkey_current_user\\k", u"fuzz\\\"")->text == u"a\r\n\u00E9");
  Require(oAgain.Find(u"HKEY_CURRENT_USER\\K\\New", u"")->number == -2);
  for (const Text& sName : asName) {
    if (EqualNoCase(sName, u"Fuzz\\\"")) continue;
    Require(*oAgain.Find(u"HKEY_CURRENT_USER\\K", sName) ==
            *oDocument.Find(u"HKEY_CURRENT_USER\\K", sName));
  }
  Require(oChanged.Delete(u"HKEY_CURRENT_USER\\K\\New", u""));
  return 0;
}
