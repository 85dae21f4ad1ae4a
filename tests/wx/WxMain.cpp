// Runs all tests inside one session of the window system.
#include <gtest/gtest.h>

#include "Desktop.h"
#include "Pictures.h"
#include "WxTest.h"

int main(int nArguments, char** apsArgument) {
  testing::InitGoogleTest(&nArguments, apsArgument);
  return Forms::RunDesktop([](Forms::Toolkit& oToolkit) {
    oToolkit.SetPictures([](TextView sKey, std::int32_t lPixels) {
      const auto abPng = FindPicture(sKey, lPixels);
      return std::string(reinterpret_cast<const char*>(abPng.data()), abPng.size());
    });
    WxTest::poToolkit = &oToolkit;
    return RUN_ALL_TESTS();
  });
}
