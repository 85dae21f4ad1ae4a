// Changes of a file in the unified form, as git apply and patch -p1 take it: bytes as they are in
// the file, CR at line ends included, and the mark of a missing last line end.
#pragma once

#include <string>
#include <string_view>

struct DiffStyle {
  bool bColor = false;
};

/// sPath: relative to the current folder, with forward slashes. Nothing when the bytes agree.
void AppendUnifiedDiff(std::string_view sPath, std::string_view sOld, std::string_view sNew,
                       const DiffStyle& oStyle, std::string& sResult);

/// The path relative to the current folder, both taken as absolute ones.
std::string RelativePath(const std::string& sPath);
