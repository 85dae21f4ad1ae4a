// What a file was when it was looked at, to tell later without reading it that it is still the
// same.
//
//   const FileStamp stamp = FileStamp::Of(path, files);   // ahead of reading, so that a change
//   bytes = AtomicFile::Read(path, files);                // meanwhile shows
//   ...
//   if (files.GetStat(path, now) == 0 && stamp.VouchesFor(now)) ...   // the bytes are those read
//
// A file that is replaced is another one (device and number), one that is written in place has
// another time of its last change, which no program can set. That time moves in steps, up to two
// seconds on some file systems: a file that changed within this before the look could have changed
// behind it as well without a sign. Nothing vouches for such a file, nor for one whose time lies in
// the future: there the bytes have to be compared.
#pragma once

#include <cstdint>
#include <string>

#include "IFileOps.h"

class FileStamp {
 public:
  /// Vouches for nothing.
  FileStamp() = default;
  /// lookedAt: the clock's time ahead of the look, in nanoseconds since 1970.
  FileStamp(const IFileOps::Stat& state, std::int64_t lookedAt);
  /// Looks now. A file that can't be looked at gives a stamp that vouches for nothing.
  static FileStamp Of(const std::string& path, IFileOps& files);

  /// True when a file in this state holds the bytes of the look for certain.
  bool VouchesFor(const IFileOps::Stat& now) const;
  const IFileOps::Stat& State() const { return mState; }

 private:
  IFileOps::Stat mState;
  bool mIsSettled = false;
};
