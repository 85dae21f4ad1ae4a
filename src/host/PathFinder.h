// Finds the files that Windows project files name, on a file system of this machine: backslashes,
// drive letters, network paths, other letter case, short names. Each part of a path is looked for
// exactly first, then without letter case; folders are listed once and remembered, so a finder
// serves one opening of a group.
//
//   PathFinder oFinder(SystemFileOps());
//   oFinder.Find("/src/Orders", u"..\\COMMON\\Helpers.bas")   // /src/Common/helpers.bas
//
// C:\Work\Orders\Main.bas has no place here by itself. It is looked for under /mnt/c, under the
// root, and, from the inside out, under every folder around the project whose name the path holds,
// so that a checkout of Orders is found wherever it stands. \\server\share\... goes the last way.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "IFileOps.h"
#include "Text.h"

class PathFinder {
 public:
  explicit PathFinder(IFileOps& oFiles) : moFiles(oFiles) {}

  struct Found {
    std::string sPath;  ///< as far as it was found in the disk's letters, the rest as written
    bool bExists = false;
  };
  /// sFolder: absolute, without links. `..` takes back the part ahead of it, as Windows does.
  /// Where two names differ only in letter case and neither is exact, the first in byte order.
  Found Find(const std::string& sFolder, TextView sEntry);

  /// One spelling per file: links resolved. For a path that doesn't exist, the path.
  std::string Identity(const std::string& sPath);

  /// The folder that holds an absolute path, without a slash at its end unless it is the root.
  static std::string FolderOf(const std::string& sPath);

 private:
  struct Listing {
    bool bRead = false;
    std::unordered_set<std::string> oExact;
    std::unordered_map<Text, std::string> oFolded;
  };
  const Listing& List(const std::string& sFolder);
  std::string Match(const std::string& sFolder, const std::string& sName);
  /// The parts of a path, each with what is left of the path behind it once every `..` has taken
  /// back the part ahead of it: so many folders up, then names. Views of the text that was given.
  class Path {
   public:
    struct Part {
      TextView text;
      std::size_t up, next;  ///< `next`: the place of the first name behind
    };
    explicit Path(TextView path);
    const std::vector<Part>& Parts() const { return moParts; }
    const Part& Whole() const { return moWhole; }  ///< as if behind a part ahead of the first
    /// The first name behind a part, or null.
    const Part* Behind(const Part& part) const {
      return part.next < moParts.size() ? &moParts[part.next] : nullptr;
    }

   private:
    std::vector<Part> moParts;
    Part moWhole;
  };
  enum class Wanted {
    Name,  ///< also of a file that isn't there
    File   ///< nothing for one that isn't there
  };
  Found Walk(std::string folder, const Path& path, const Path::Part& from, Wanted wanted);
  Found FindMoved(const std::string& folder, const Path& path);

  IFileOps& moFiles;
  std::unordered_map<std::string, Listing> moListings;
  std::unordered_map<std::string, std::string> moRealFolders;
};
