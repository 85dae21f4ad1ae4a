// File tests that never fail: a failure to read the attributes gives false.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Text.h"

namespace MXFile {

bool FileExists(TextView sFile);
bool PathExists(TextView sPath);
bool FileReadOnly(TextView sFile);
/// When the file was last written, in seconds since 1970; nothing when it isn't there.
std::optional<std::int64_t> FileModified(TextView file);
/// Reads the whole file as raw bytes. A failure is a Failure with the path in its text; false: the
/// error run-time answered it with going on, and nothing was read.
bool FileBinaryRead(TextView sFile, std::string& sContents);

}  // namespace MXFile
