// What tests of printing share: a printer whose device records, and a clock that stands still.
#pragma once

#include <gtest/gtest.h>

#include "CXPrint.h"
#include "FailureOf.h"
#include "MXDate.h"
#include "RecordingDevice.h"
#include "TableRows.h"

struct PrintTest : testing::Test {
  RecordingDevice oDevice;
  Paper::Printer oPrinter{oDevice};
  std::function<std::int64_t()> fnOldNow = MXDate::fnNow;

  PrintTest() {
    setenv("TZ", "UTC", 1);
    MXDate::fnNow = [] { return 1717609509; };  // 2024/06/05 17:45:09
  }
  ~PrintTest() override { MXDate::fnNow = fnOldNow; }
  /// The texts that were printed since the last call.
  std::string TakeRows() { return std::exchange(oDevice.sRows, {}); }
};
