#include "RememberedRoots.h"

#include <algorithm>

#include "MXRegistry.h"
#include "PathText.h"
#include "RegistryStore.h"
#include "Text.h"
#include "WriteRoots.h"

namespace {

constexpr char16_t Separator = u':';

/// Those in memory are this process's own.
bool AreSettingsOwn() {
  const std::string& path = CurrentRegistry().Path();
  return path.empty() || path == DefaultSettingsPath();
}

/// Closes the key, which is made when it is missing.
class RootsKey {
 public:
  RootsKey()
      : mKey(MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                    Text(MXRegistry::RootKey) + u"Roots",
                                    MXRegistry::KEY_ALL_ACCESS)) {}
  ~RootsKey() { MXRegistry::CloseRegKey(mKey); }
  RootsKey(const RootsKey&) = delete;
  RootsKey& operator=(const RootsKey&) = delete;
  operator std::int32_t() const { return mKey; }

 private:
  std::int32_t mKey;
};

}  // namespace

RememberedRoots::RememberedRoots(const std::string& group) : mGroup(RealPath(group)) {
  if (!AreSettingsOwn()) return;
  const Text kept = MXRegistry::GetRegString(RootsKey(), TextOfPath(mGroup), u"");
  for (TextView rest = kept; !rest.empty();) {
    const TextView item = rest.substr(0, rest.find(Separator));
    rest.remove_prefix(std::min(item.size() + 1, rest.size()));
    if (item.starts_with(u"+/") || item.starts_with(u"-/"))
      mAnswers[PathOfText(item.substr(1))] = item[0] == u'+';
  }
}

std::vector<std::string> RememberedRoots::Allowed() const {
  std::vector<std::string> folders;
  for (const auto& [folder, mayWrite] : mAnswers)
    if (mayWrite) folders.push_back(folder);
  return folders;
}

void RememberedRoots::Add(const std::vector<std::string>& folders, bool mayWrite) {
  for (const std::string& folder : folders) mAnswers[folder] = mayWrite;
  Text kept;
  for (const auto& [folder, isAllowed] : mAnswers) {
    const Text shown = TextOfPath(folder);
    if (shown.find(Separator) != Text::npos) continue;
    if (!kept.empty()) kept += Separator;
    kept += (isAllowed ? u'+' : u'-') + shown;
  }
  if (AreSettingsOwn()) MXRegistry::SetRegString(RootsKey(), TextOfPath(mGroup), kept);
}
