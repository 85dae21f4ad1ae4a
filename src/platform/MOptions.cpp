#include "MOptions.h"

#include "Guard.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace MXRegistry;

constexpr std::int32_t UsualMargin = 500;
std::int32_t optionsKey = 0, pageKey = 0;

void GetFont(const Text& prefix, MOptions::Font& font) {
  const MOptions::Font usual;
  font.sFace = GetRegString(optionsKey, prefix + u" Font Face", usual.sFace);
  font.lSize = GetRegLong(optionsKey, prefix + u" Font Size", usual.lSize);
  font.bBold = GetRegBool(optionsKey, prefix + u" Font Bold", usual.bBold);
  font.bItalic = GetRegBool(optionsKey, prefix + u" Font Italic", usual.bItalic);
}

void SetFont(const Text& prefix, const MOptions::Font& font) {
  SetRegString(optionsKey, prefix + u" Font Face", font.sFace);
  SetRegLong(optionsKey, prefix + u" Font Size", font.lSize);
  SetRegBool(optionsKey, prefix + u" Font Bold", font.bBold);
  SetRegBool(optionsKey, prefix + u" Font Italic", font.bItalic);
}

/// Failures are reported under the routine's own name and go on to the caller.
template <class Work>
void Reported(TextView procedure, Work&& work) {
  Guard({u"MOptions", procedure}, [&](GuardScope&) { work(); });
}

std::int32_t OpenBelowRoot(TextView key) {
  return OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + Text(key), KEY_ALL_ACCESS);
}

}  // namespace

namespace MOptions {

Font oCodeFont, oResultsFont, oErrorFont;
std::int32_t lLeftMargin = UsualMargin, lTopMargin = UsualMargin, lRightMargin = UsualMargin,
             lBottomMargin = UsualMargin;

void Initialize() {
  Reported(u"Initialize", [] {
    optionsKey = OpenBelowRoot(u"Options");
    pageKey = OpenBelowRoot(u"Page Setup");
    GetOptions();
    GetPage();
  });
}

void GetOptions() {
  Reported(u"GetOptions", [] {
    GetFont(u"Code", oCodeFont);
    GetFont(u"Results", oResultsFont);
    GetFont(u"Error", oErrorFont);
  });
}

void SetOptions() {
  Reported(u"SetOptions", [] {
    const RegistryStore::Batch oneSave(CurrentRegistry());
    SetFont(u"Code", oCodeFont);
    SetFont(u"Results", oResultsFont);
    SetFont(u"Error", oErrorFont);
  });
}

void GetPage() {
  Reported(u"GetPage", [] {
    lLeftMargin = GetRegLong(pageKey, u"Left Margin", UsualMargin);
    lTopMargin = GetRegLong(pageKey, u"Top Margin", UsualMargin);
    lRightMargin = GetRegLong(pageKey, u"Right Margin", UsualMargin);
    lBottomMargin = GetRegLong(pageKey, u"Bottom Margin", UsualMargin);
  });
}

void SetPage() {
  Reported(u"SetPage", [] {
    const RegistryStore::Batch oneSave(CurrentRegistry());
    SetRegLong(pageKey, u"Left Margin", lLeftMargin);
    SetRegLong(pageKey, u"Top Margin", lTopMargin);
    SetRegLong(pageKey, u"Right Margin", lRightMargin);
    SetRegLong(pageKey, u"Bottom Margin", lBottomMargin);
  });
}

}  // namespace MOptions
