#include "MOptions.h"

#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace MXRegistry;

constexpr std::int32_t lUsualMargin = 500;
std::int32_t mhOptions = 0, mhPage = 0;

void GetFont(const Text& sPrefix, MOptions::Font& oFont) {
  const MOptions::Font oUsual;
  oFont.sFace = GetRegString(mhOptions, sPrefix + u" Font Face", oUsual.sFace);
  oFont.lSize = GetRegLong(mhOptions, sPrefix + u" Font Size", oUsual.lSize);
  oFont.bBold = GetRegBool(mhOptions, sPrefix + u" Font Bold", oUsual.bBold);
  oFont.bItalic = GetRegBool(mhOptions, sPrefix + u" Font Italic", oUsual.bItalic);
}

void SetFont(const Text& sPrefix, const MOptions::Font& oFont) {
  SetRegString(mhOptions, sPrefix + u" Font Face", oFont.sFace);
  SetRegLong(mhOptions, sPrefix + u" Font Size", oFont.lSize);
  SetRegBool(mhOptions, sPrefix + u" Font Bold", oFont.bBold);
  SetRegBool(mhOptions, sPrefix + u" Font Italic", oFont.bItalic);
}

std::int32_t OpenBelowRoot(TextView sKey) {
  return OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + Text(sKey), KEY_ALL_ACCESS);
}

}  // namespace

namespace MOptions {

Font oCodeFont, oResultsFont, oErrorFont;
std::int32_t lLeftMargin = lUsualMargin, lTopMargin = lUsualMargin, lRightMargin = lUsualMargin,
             lBottomMargin = lUsualMargin;

void Initialize() {
  mhOptions = OpenBelowRoot(u"Options");
  mhPage = OpenBelowRoot(u"Page Setup");
  GetOptions();
  GetPage();
}

void GetOptions() {
  GetFont(u"Code", oCodeFont);
  GetFont(u"Results", oResultsFont);
  GetFont(u"Error", oErrorFont);
}

void SetOptions() {
  const RegistryStore::Batch oOneSave(CurrentRegistry());
  SetFont(u"Code", oCodeFont);
  SetFont(u"Results", oResultsFont);
  SetFont(u"Error", oErrorFont);
}

void GetPage() {
  lLeftMargin = GetRegLong(mhPage, u"Left Margin", lUsualMargin);
  lTopMargin = GetRegLong(mhPage, u"Top Margin", lUsualMargin);
  lRightMargin = GetRegLong(mhPage, u"Right Margin", lUsualMargin);
  lBottomMargin = GetRegLong(mhPage, u"Bottom Margin", lUsualMargin);
}

void SetPage() {
  const RegistryStore::Batch oOneSave(CurrentRegistry());
  SetRegLong(mhPage, u"Left Margin", lLeftMargin);
  SetRegLong(mhPage, u"Top Margin", lTopMargin);
  SetRegLong(mhPage, u"Right Margin", lRightMargin);
  SetRegLong(mhPage, u"Bottom Margin", lBottomMargin);
}

}  // namespace MOptions
