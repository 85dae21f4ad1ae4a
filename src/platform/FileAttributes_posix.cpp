#include "FileAttributes.h"

#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <vector>

namespace FileAttributes {

namespace {

using Bytes = std::vector<char>;

constexpr const char* AccessList = "system.posix_acl_access";

/// The system makes these itself from what a file holds; those of the old contents would be false.
bool IsOfContents(const std::string& name) {
  return name == "security.ima" || name == "security.evm";
}

/// Calls with a buffer that is large enough, though the size may change between the two calls.
template <class Call>
int Fetch(Bytes& bytes, Call&& call) {
  for (;;) {
    ssize_t size = call(nullptr, 0);
    if (size < 0) return errno;
    bytes.resize(static_cast<std::size_t>(size));
    if (size == 0) return 0;
    size = call(bytes.data(), bytes.size());
    if (size < 0 && errno == ERANGE) continue;
    if (size < 0) return errno;
    bytes.resize(static_cast<std::size_t>(size));
    return 0;
  }
}

std::vector<std::string> SplitAtNulls(const Bytes& list) {
  std::vector<std::string> names;
  for (auto start = list.begin(); start != list.end();) {
    const auto end = std::find(start, list.end(), '\0');
    names.emplace_back(start, end);
    start = end == list.end() ? end : end + 1;
  }
  return names;
}

/// Nothing where the file hasn't the attribute.
int ValueOf(const std::string& from, const std::string& name, std::optional<Bytes>& value) {
  Bytes bytes;
  const int error = Fetch(bytes, [&](char* buffer, std::size_t size) {
    return getxattr(from.c_str(), name.c_str(), buffer, size);
  });
  if (error == 0) value = std::move(bytes);
  return error == ENODATA ? 0 : error;
}

/// Some systems refuse to set what is so already, such as a label that all files of a folder get.
bool Has(int file, const std::string& name, const Bytes& value) {
  Bytes now;
  const int error = Fetch(now, [&](char* buffer, std::size_t size) {
    return fgetxattr(file, name.c_str(), buffer, size);
  });
  return error == 0 && now == value;
}

int CopyOne(const std::string& from, const std::string& name, int file) {
  std::optional<Bytes> value;
  if (const int error = ValueOf(from, name, value)) return error;
  if (!value || Has(file, name, *value)) return 0;
  return fsetxattr(file, name.c_str(), value->data(), value->size(), 0) == 0 ? 0 : errno;
}

int DropAccessList(int file) {
  if (fremovexattr(file, AccessList) == 0) return 0;
  return errno == ENODATA || errno == ENOTSUP ? 0 : errno;
}

}  // namespace

int Copy(const std::string& from, int file) {
  Bytes list;
  const int error = Fetch(
      list, [&](char* buffer, std::size_t size) { return listxattr(from.c_str(), buffer, size); });
  if (error != 0 && error != ENOTSUP) return error;
  const std::vector<std::string> names = SplitAtNulls(list);
  if (std::find(names.begin(), names.end(), AccessList) == names.end()) {
    if (const int failed = DropAccessList(file)) return failed;
  }
  for (const std::string& name : names) {
    if (IsOfContents(name)) continue;
    if (const int failed = CopyOne(from, name, file)) return failed;
  }
  return 0;
}

}  // namespace FileAttributes
