#include "TeamFile.h"

// The library as headers alone: nothing to ship.
#define TOML_HEADER_ONLY 1
#include <toml++/toml.h>

#include <algorithm>
#include <filesystem>

#include "AtomicFile.h"
#include "MRules.h"
#include "NearWord.h"
#include "RuleText.h"
#include "Session.h"
#include "UnifiedDiff.h"
#include "WriteRoots.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

enum class Kind { Text, List };
/// Keys of a table of the file, with its name and a dot ahead.
struct Key {
  const char* name;
  Kind kind;
  bool isPath = false;  ///< inside of the file's folder
};
constexpr Key Keys[] = {
    {"groups", Kind::List, true}, {"template", Kind::Text},
    {"define", Kind::List},       {"roots", Kind::List, true},
    {"exclude", Kind::List},      {"check.select", Kind::List},
    {"check.ignore", Kind::List}, {"check.baseline", Kind::Text, true},
};

Texts KnownNames(const std::string& table) {
  Texts names;
  for (const Key& key : Keys) {
    const std::string name = key.name;
    if (name.starts_with(table) && name.find('.', table.size()) == std::string::npos)
      names.push_back(name.substr(table.size()));
  }
  if (table.empty()) names.insert(names.end(), {"check", "rules"});
  return names;
}

/// Up and dot-folders would lead to what the file has no say about.
bool LeadsOut(const std::string& path) {
  const fs::path whole(path);
  return whole.is_absolute() || std::any_of(whole.begin(), whole.end(), [](const fs::path& name) {
           return name != "." && name.string().starts_with('.');
         });
}

}  // namespace

class TeamFileReader {
 public:
  explicit TeamFileReader(TeamFile& file) : mFile(file) {}

  void Read(const std::string& text) {
    try {
      Table(toml::parse(text), "");
    } catch (const toml::parse_error& error) {
      Reject(error.source(), std::string(error.description()));
    }
  }

 private:
  [[noreturn]] void Reject(const toml::source_region& at, const std::string& why) const {
    throw Stop{Placed(ShownFile(mFile.mPath), static_cast<std::int64_t>(at.begin.line), why)};
  }

  void Table(const toml::table& table, const std::string& prefix) {
    for (const auto& [name, node] : table) {
      const std::string key = prefix + std::string(name.str());
      const bool isTable = key == "check" || key == "rules";
      if (isTable && !node.is_table()) Reject(node.source(), key + " is a table: [" + key + "]");
      if (key == "check") {
        Table(*node.as_table(), "check.");
      } else if (key == "rules") {
        Rules(*node.as_table());
      } else {
        One(key, prefix, node);
      }
    }
  }

  void One(const std::string& key, const std::string& prefix, const toml::node& node) {
    const Key* const row =
        std::find_if(std::begin(Keys), std::end(Keys), [&](const Key& k) { return key == k.name; });
    if (row == std::end(Keys))
      Reject(node.source(),
             "there is no key " + key + DidYouMean(key.substr(prefix.size()), KnownNames(prefix)));
    Texts& texts = mFile.mTexts[key];
    mFile.mLines[key] = node.source().begin.line;
    if (row->kind == Kind::Text) {
      texts.push_back(TextOf(*row, node));
    } else if (const toml::array* const list = node.as_array()) {
      for (const toml::node& one : *list) texts.push_back(TextOf(*row, one));
    } else {
      Reject(node.source(), key + " is a list of texts: [\"...\"]");
    }
  }

  std::string TextOf(const Key& key, const toml::node& node) {
    const auto text = node.value<std::string>();
    if (!text || !node.is_string()) Reject(node.source(), std::string(key.name) + " takes texts");
    if (key.isPath && LeadsOut(*text))
      Reject(node.source(), std::string(key.name) + " can't be " + *text +
                                ": it has to lie below the folder of " + TeamFile::Name +
                                ", in no folder whose name begins with a dot; options and the "
                                "user's own settings may name others");
    return *text;
  }

  void Rules(const toml::table& table) {
    MRules::Values unused;
    for (const auto& [name, node] : table) {
      const std::string rule(name.str());
      std::string value;
      if (const auto* truth = node.as_boolean()) value = truth->get() ? "true" : "false";
      if (const auto* number = node.as_integer()) value = std::to_string(number->get());
      if (value.empty()) Reject(node.source(), rule + " takes a number, true or false");
      try {
        SetRule(rule, value, unused);
      } catch (const Stop& stop) {
        Reject(node.source(), stop.sMessage);
      }
      mFile.mRules[rule] = value;
      mFile.mLines[rule] = node.source().begin.line;
    }
  }

  TeamFile& mFile;
};

std::optional<TeamFile> TeamFile::Find(const std::string& path) {
  std::error_code error;
  fs::path folder = FolderOfPath(path.empty() ? "." : path);
  for (;; folder = folder.parent_path()) {
    const std::string candidate = (folder / Name).string();
    if (fs::exists(candidate, error)) {
      TeamFile file;
      file.mPath = candidate;
      file.mFolder = folder.string();
      TeamFileReader(file).Read(AtomicFile::Read(candidate));
      return file;
    }
    if (fs::exists(folder / ".git", error) || folder == folder.root_path() || folder.empty())
      return std::nullopt;
  }
}

std::string TeamFile::Place(const std::string& key) const {
  return ShownFile(mPath) + ':' + std::to_string(mLines.at(key));
}

std::string TeamFile::Here(const std::string& path) const {
  return RelativePath((fs::path(mFolder) / path).string());
}

void TeamFile::ApplyTo(Arguments& arguments) const {
  const auto fill = [&](const char* key, bool isGiven, auto take) {
    const auto texts = mTexts.find(key);
    if (isGiven || texts == mTexts.end()) return;
    take(texts->second);
    arguments.origins[key] = Place(key);
  };
  const auto paths = [this](const Texts& texts) {
    Texts here;
    for (const std::string& text : texts) here.push_back(Here(text));
    return here;
  };
  const Texts& given = arguments.asPath;
  const bool isFolder = given.size() == 1 && RealPath(given.front()) == mFolder;
  fill("groups", !given.empty() && !isFolder,
       [&](const Texts& texts) { arguments.asPath = paths(texts); });
  fill("template", !arguments.sTemplateFile.empty(),
       [&](const Texts& texts) { arguments.sTemplateFile = Here(texts.front()); });
  fill("define", !arguments.asDefine.empty(),
       [&](const Texts& texts) { arguments.asDefine = texts; });
  fill("roots", false, [&](const Texts& texts) {
    for (const std::string& text : texts)
      arguments.within.push_back(RealPath((fs::path(mFolder) / text).lexically_normal().string()));
  });
  fill("exclude", !arguments.excluded.empty(), [&](const Texts& texts) {
    arguments.excluded = texts;
    arguments.excludedFrom = mFolder;
  });
  fill("check.select", !arguments.asSelect.empty(),
       [&](const Texts& texts) { arguments.asSelect = texts; });
  fill("check.ignore", !arguments.asIgnore.empty(),
       [&](const Texts& texts) { arguments.asIgnore = texts; });
  fill("check.baseline", arguments.baseline.has_value(), [&](const Texts& texts) {
    const fs::path path = fs::path(mFolder) / texts.front();
    // It is written, so that no link may lead it out.
    const bool isHere = (RealPath(path.parent_path().string()) + '/').starts_with(mFolder + '/');
    if (!isHere || fs::is_symlink(path))
      throw Stop{Place("check.baseline") + ": the baseline leads out of the folder by a link"};
    arguments.baseline = Here(texts.front());
  });
}

void TeamFile::ApplyRules(Arguments& arguments) const {
  if (arguments.oSettingsFile) return;
  for (const auto& [name, value] : mRules) {
    SetRule(name, value, MRules::oRules);
    arguments.origins["rules." + name] = Place(name);
  }
}
