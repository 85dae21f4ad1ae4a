#include "WriteRoots.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>

#include "FileFailure.h"
#include "PathText.h"

namespace {

constexpr TextView Extensions[] = {u".bas", u".cls", u".frm", u".ctl", u".pag", u".dob", u".dsr"};

bool HasExtensionOfCode(const std::string& path) {
  const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return false;
  const Text extension = FromUtf8(name.substr(dot));
  return std::ranges::any_of(Extensions,
                             [&](TextView known) { return EqualNoCase(known, extension); });
}

/// The part of a path below a folder, with a slash ahead of it; nothing where it isn't below.
std::optional<std::string_view> PartBelow(std::string_view folder, std::string_view path) {
  while (folder.ends_with('/')) folder.remove_suffix(1);
  if (!path.starts_with(folder) || !path.substr(folder.size()).starts_with('/')) return {};
  return path.substr(folder.size());
}

/// The file's own name may begin with a dot.
bool HasDotFolder(std::string_view path) {
  return path.substr(0, path.rfind('/') + 1).find("/.") != std::string_view::npos;
}

}  // namespace

WriteRefusal WriteRoots::Refusal(const std::string& path) const {
  if (!HasExtensionOfCode(path)) return WriteRefusal::ForeignExtension;
  for (const std::string& folder : mFolders) {
    const auto below = PartBelow(folder, path);
    if (below && !HasDotFolder(*below)) return WriteRefusal::None;
  }
  return HasDotFolder(path) ? WriteRefusal::DotFolder : WriteRefusal::Outside;
}

Text WriteRoots::Reason(const std::string& path) const {
  const Text shown = TextOfPath(path);
  switch (Refusal(path)) {
    case WriteRefusal::None:
      return {};
    case WriteRefusal::Outside:
      return shown +
             u" lies outside of the folders that may be written; to have it written as well, "
             u"give --root " +
             TextOfPath(FileFailure::FolderOf(path));
    case WriteRefusal::DotFolder:
      return shown + u" lies in a folder whose name begins with a dot; nothing is written there";
    case WriteRefusal::ForeignExtension:
      return shown +
             u" has none of the extensions .bas, .cls, .frm, .ctl, .pag, .dob and .dsr; no other "
             u"file is written";
  }
  return {};
}

std::string WorkTreeOf(const std::string& folder, IFileOps& files) {
  for (std::string place = folder;;) {
    IFileOps::Stat state;
    if (files.GetStat(place + (place == "/" ? "" : "/") + ".git", state) == 0) return place;
    const std::string above = FileFailure::FolderOf(place);
    // Above a drive of Windows is nothing; "." would be the folder of the program.
    if (place == "/" || above == ".") return folder;
    place = above;
  }
}

std::vector<std::string> NarrowedRoots(const std::string& tree,
                                       const std::vector<std::string>& folders) {
  if (folders.empty()) return {tree};
  std::vector<std::string> roots;
  for (const std::string& folder : folders) {
    const auto below = PartBelow(tree, folder);
    if (below && !HasDotFolder(std::string(*below) + '/')) roots.push_back(folder);
    if (folder == tree || PartBelow(folder, tree)) roots.push_back(tree);
  }
  return roots;
}

std::string RealPath(const std::string& path) {
  std::error_code error;
  const auto real = std::filesystem::canonical(path, error);
  return error ? path : real.generic_string();
}
