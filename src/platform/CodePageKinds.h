// The three kinds of code pages behind CodePage::Get.
#pragma once

#include <memory>

#include "CodePage.h"

std::unique_ptr<CodePage> MakeCodePage1252();
std::unique_ptr<CodePage> MakeCodePageUtf8();
/// Null when number is no page that is known; Failure 5 when the C library lacks its table.
std::unique_ptr<CodePage> MakeCodePageTable(int number);
