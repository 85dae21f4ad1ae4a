#include "PathFinder.h"

#include <algorithm>
#include <filesystem>

#include "PathText.h"

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

std::vector<TextView> SplitParts(TextView path) {
  std::vector<TextView> parts;
  for (TextView part = TakePart(path); !part.empty(); part = TakePart(path)) parts.push_back(part);
  return parts;
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

PathFinder::Found PathFinder::Walk(std::string folder, Parts parts, Wanted wanted) {
  std::size_t missing = 0;  // parts at the end of the path that aren't there
  for (; !parts.empty(); parts = parts.subspan(1)) {
    const TextView part = parts.front();
    if (part == u".") continue;
    const bool isNamed = missing == 0 || wanted == Wanted::Name;
    if (part == u"..") {
      if (isNamed) folder = FolderOf(folder);
      if (missing > 0) --missing;
      continue;
    }
    const std::string name = isNamed ? PathOfText(part) : std::string();
    const std::string match = missing == 0 ? Match(folder, name) : std::string();
    if (match.empty()) ++missing;
    if (missing > 0 && wanted == Wanted::File) {
      if (std::ranges::find(parts, u"..") == parts.end()) return {};
      continue;
    }
    if (!folder.ends_with('/')) folder += '/';
    folder += match.empty() ? name : match;
  }
  return {std::move(folder), missing == 0};
}

PathFinder::Found PathFinder::FindMoved(const std::string& folder, Parts parts) {
  for (std::string around = folder; around != "/"; around = FolderOf(around)) {
    const Text name = TextOfPath(NameOf(around));
    for (Parts rest = parts; !rest.empty(); rest = rest.subspan(1)) {
      if (!EqualNoCase(rest.front(), name)) continue;
      Found found = Walk(around, rest.subspan(1), Wanted::File);
      if (found.bExists) return found;
    }
  }
  return {};
}

PathFinder::Found PathFinder::Find(const std::string& sFolder, TextView sEntry) {
  const bool bDrive = HasDrive(sEntry);
  const bool bShare = sEntry.size() > 1 && IsSeparator(sEntry[0]) && IsSeparator(sEntry[1]);
  const std::vector<TextView> parts = SplitParts(bDrive ? sEntry.substr(2) : sEntry);
  if (!bDrive && !bShare)
    return Walk(!sEntry.empty() && IsSeparator(sEntry[0]) ? "/" : sFolder, parts, Wanted::Name);
  if (bDrive && !parts.empty()) {
    const Text letter(1, LowerCase(sEntry[0]));
    std::vector<TextView> mounted = {u"mnt", letter};
    mounted.insert(mounted.end(), parts.begin(), parts.end());
    for (const Parts tried : {Parts(mounted), Parts(parts)})
      if (Found found = Walk("/", tried, Wanted::File); found.bExists) return found;
  }
  if (Found oFound = FindMoved(sFolder, parts); oFound.bExists) return oFound;
  return {PathOfText(sEntry), false};
}

// A link costs a look at every part of its path; of plain files only the folder is resolved, once.
std::string PathFinder::Identity(const std::string& sPath) {
  std::error_code oError;
  if (fs::is_symlink(fs::symlink_status(sPath, oError))) {
    fs::path oReal = fs::canonical(sPath, oError);
    return oError ? sPath : oReal.string();
  }
  auto [it, bNew] = moRealFolders.try_emplace(FolderOf(sPath));
  if (bNew) {
    fs::path oReal = fs::canonical(it->first, oError);
    it->second = oError ? it->first : oReal.string();
  }
  return Join(it->second, NameOf(sPath));
}
