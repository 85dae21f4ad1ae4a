#include "SourceFile.h"

#include <string_view>

#include "AtomicFile.h"
#include "Failure.h"
#include "PathText.h"

namespace {

/// Where a binary file shows by a null byte. Code may hold one further down, in a literal.
constexpr std::size_t FirstBytes = 512;

TextView WhyNoSource(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
    return u"The file is in UTF-16, which the IDE can't read. Save it in a code page or as UTF-8";
  if (bytes.substr(0, FirstBytes).find('\0') != std::string_view::npos)
    return u"The file begins with binary data, so it isn't source code. Name another, or restore "
           u"it";
  return {};
}

}  // namespace

std::string ReadSource(const std::string& path, IFileOps& files) {
  std::string bytes = AtomicFile::Read(path, files);
  const TextView why = WhyNoSource(bytes);
  if (!why.empty()) throw Failure(321, Text(why) + u": " + TextOfPath(path), u"host");
  return bytes;
}
