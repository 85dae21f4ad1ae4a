#include "PathFinder.h"

#include <algorithm>
#include <filesystem>

#include "PathText.h"
#include "SystemPaths.h"

namespace {

namespace fs = std::filesystem;

bool IsSeparator(char16_t cUnit) {
  return cUnit == u'\\' || cUnit == u'/';
}

bool IsLetter(char16_t cUnit) {
  char16_t cLower = LowerCase(cUnit);
  return cLower >= u'a' && cLower <= u'z';
}

bool HasDrive(TextView sPath) {
  return sPath.size() >= 2 && sPath[1] == u':' && IsLetter(sPath[0]);
}

// Takes the first part off a path; separators that repeat count once.
TextView TakePart(TextView& sRest) {
  auto lStart = std::ranges::find_if_not(sRest, IsSeparator) - sRest.begin();
  sRest.remove_prefix(static_cast<std::size_t>(lStart));
  auto lEnd = static_cast<std::size_t>(std::ranges::find_if(sRest, IsSeparator) - sRest.begin());
  TextView sPart = sRest.substr(0, lEnd);
  sRest.remove_prefix(lEnd);
  return sPart;
}

std::string Join(const std::string& sFolder, const std::string& sName) {
  return sFolder.ends_with('/') ? sFolder + sName : sFolder + '/' + sName;
}

std::string NameOf(const std::string& sPath) {
  return sPath.substr(sPath.rfind('/') + 1);
}

// The letters from which Windows makes a short name: no blanks, no dots but the last.
bool FitsShortName(TextView sLongLower, TextView sShortLower) {
  std::size_t lTilde = sShortLower.find(u'~');
  std::size_t lShortDot = std::min(sShortLower.rfind(u'.'), sShortLower.size());
  std::size_t lLongDot = std::min(sLongLower.rfind(u'.'), sLongLower.size());
  Text sStem;
  for (char16_t cUnit : sLongLower.substr(0, lLongDot))
    if (cUnit != u' ' && cUnit != u'.') sStem += cUnit;
  bool bStem = TextView(sStem).substr(0, lTilde) == sShortLower.substr(0, lTilde);
  return bStem && sLongLower.substr(lLongDot).substr(0, 4) == sShortLower.substr(lShortDot);
}

bool IsShortName(TextView sName) {
  std::size_t lTilde = sName.find(u'~');
  return lTilde != TextView::npos && lTilde > 0 && lTilde + 1 < sName.size() &&
         sName.size() <= 12 && sName[lTilde + 1] >= u'1' && sName[lTilde + 1] <= u'9';
}

}  // namespace

std::string PathFinder::FolderOf(const std::string& sPath) {
  std::size_t lSlash = sPath.rfind('/');
  return lSlash == std::string::npos || lSlash == 0 ? "/" : sPath.substr(0, lSlash);
}

const PathFinder::Listing& PathFinder::List(const std::string& sFolder) {
  auto [it, bNew] = moListings.try_emplace(sFolder);
  Listing& oListing = it->second;
  if (!bNew) return oListing;
  std::vector<std::string> asName;
  oListing.bRead = moFiles.ListFolder(sFolder, asName) == 0;
  std::ranges::sort(asName);
  for (std::string& sName : asName) {
    oListing.oFolded.try_emplace(LowerCase(TextOfPath(sName)), sName);
    oListing.oExact.insert(std::move(sName));
  }
  return oListing;
}

// The name on disk of a part, or empty. A short name is taken only when a single entry fits it:
// guessing between two could change the wrong file.
std::string PathFinder::Match(const std::string& sFolder, const std::string& sName) {
  const Listing& oListing = List(sFolder);
  if (!oListing.bRead) {
    IFileOps::Stat oStat;
    return moFiles.GetStat(Join(sFolder, sName), oStat) == 0 ? sName : std::string();
  }
  if (oListing.oExact.contains(sName)) return sName;
  Text sLower = LowerCase(TextOfPath(sName));
  auto it = oListing.oFolded.find(sLower);
  if (it != oListing.oFolded.end()) return it->second;
  if (!IsShortName(sLower)) return {};
  auto Fits = [&](const auto& oEntry) { return FitsShortName(oEntry.first, sLower); };
  bool bOne = std::ranges::count_if(oListing.oFolded, Fits) == 1;
  return bOne ? std::ranges::find_if(oListing.oFolded, Fits)->second : std::string();
}

// From the last part back: a name is taken back when the parts behind it lead further up.
PathFinder::Path::Path(TextView path) {
  for (TextView part = TakePart(path); !part.empty(); part = TakePart(path))
    moParts.push_back({part, 0, 0});
  std::size_t up = 0, name = moParts.size();
  for (std::size_t i = moParts.size(); i-- > 0;) {
    moParts[i].up = up;
    moParts[i].next = name;
    if (moParts[i].text == u".") continue;
    if (moParts[i].text == u"..") {
      ++up;
    } else if (up > 0) {
      --up;
    } else {
      name = i;
    }
  }
  moWhole = {{}, up, name};
}

PathFinder::Found PathFinder::Walk(std::string folder, const Path& path, const Path::Part& from,
                                   Wanted wanted) {
  for (std::size_t up = from.up; up > 0 && folder != "/"; --up) folder = FolderOf(folder);
  bool exists = true;
  for (const Path::Part* part = path.Behind(from); part != nullptr; part = path.Behind(*part)) {
    const std::string name = PathOfText(part->text);
    const std::string match = exists ? Match(folder, name) : std::string();
    if (match.empty() && wanted == Wanted::File) return {};
    exists = !match.empty();
    if (!folder.ends_with('/')) folder += '/';
    folder += exists ? match : name;
  }
  return {std::move(folder), exists};
}

PathFinder::Found PathFinder::FindMoved(const std::string& folder, const Path& path) {
  for (std::string around = folder; around != "/"; around = FolderOf(around)) {
    const Text name = TextOfPath(NameOf(around));
    for (const Path::Part& part : path.Parts()) {
      if (!EqualNoCase(part.text, name)) continue;
      Found found = Walk(around, path, part, Wanted::File);
      if (found.bExists) return found;
    }
  }
  return {};
}

PathFinder::Found PathFinder::Find(const std::string& sFolder, TextView sEntry) {
  const bool bDrive = HasDrive(sEntry);
  const bool bShare = sEntry.size() > 1 && IsSeparator(sEntry[0]) && IsSeparator(sEntry[1]);
  const Path path(bDrive ? sEntry.substr(2) : sEntry);
  if (!bDrive && !bShare) {
    const bool isRooted = !sEntry.empty() && IsSeparator(sEntry[0]);
    return Walk(isRooted ? "/" : sFolder, path, path.Whole(), Wanted::Name);
  }
  if (bDrive && !path.Parts().empty()) {
    for (const std::string& root : RootsOfDrive(static_cast<char>(LowerCase(sEntry[0]))))
      if (Found found = Walk(root, path, path.Whole(), Wanted::File); found.bExists) return found;
  }
  if (Found oFound = FindMoved(sFolder, path); oFound.bExists) return oFound;
  return {PathOfText(sEntry), false};
}

// A link costs a look at every part of its path; of plain files only the folder is resolved, once.
std::string PathFinder::Identity(const std::string& sPath) {
  std::error_code oError;
  if (fs::is_symlink(fs::symlink_status(sPath, oError))) {
    fs::path oReal = fs::canonical(sPath, oError);
    return oError ? sPath : oReal.generic_string();
  }
  auto [it, bNew] = moRealFolders.try_emplace(FolderOf(sPath));
  if (bNew) {
    fs::path oReal = fs::canonical(it->first, oError);
    it->second = oError ? it->first : oReal.generic_string();
  }
  return Join(it->second, NameOf(sPath));
}
