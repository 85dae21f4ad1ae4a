// File tests that never fail: a failure to read the attributes gives false.
#pragma once

#include <string>

#include "Text.h"

namespace MXFile {

bool FileExists(TextView sFile);
bool PathExists(TextView sPath);
bool FileReadOnly(TextView sFile);
/// Reads the whole file as raw bytes. A failure is a Failure with the path in its text.
void FileBinaryRead(TextView sFile, std::string& sContents);

}  // namespace MXFile
