// The file operations of the program, one virtual call per operation of the system, so that a
// test can make each of them fail or end the process there. All paths are the platform's bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class IFileOps {
 public:
  virtual ~IFileOps() = default;

  struct Stat {
    bool bDirectory = false;
    bool bSpecial = false;   ///< neither file nor folder: a device, a pipe, a socket
    bool bReadOnly = false;  ///< no write permission for the owner
    std::uint64_t lSize = 0;
    std::int64_t lModified = 0;  ///< nanoseconds since 1970
    std::int64_t lChanged = 0;   ///< of bytes, mode, owner or name; the system alone sets it
    std::uint64_t lDevice = 0, lNumber = 0;  ///< which file it is, whatever its name
    std::uint32_t lMode = 0;
    std::uint32_t lOwner = 0, lGroup = 0;
    std::uint64_t links = 1;  ///< names of the file, of which a replacement would part one
  };

  /// 0 and the state, or the system's error number. Follows symbolic links.
  virtual int GetStat(const std::string& sPath, Stat& oStat) = 0;
  /// The most bytes that are read of a file: all that is read is held in memory.
  static constexpr std::size_t LargestFile = std::size_t{64} << 20;

  /// Reads the whole file; 0 or the system's error number: EISDIR for a folder, ENODEV for a device
  /// or a pipe, which need not end, EFBIG for a file above LargestFile.
  virtual int ReadAll(const std::string& sPath, std::string& sBytes) = 0;
  /// Its first bytes, so many at most; 0 or the system's error number.
  virtual int ReadStart(const std::string& sPath, std::size_t most, std::string& sBytes) = 0;
  /// The entries of a folder without "." and ".."; 0 or the error number.
  virtual int ListFolder(const std::string& sPath, std::vector<std::string>& asName) = 0;
  /// The file that sPath leads to when its last part is a symbolic link, else sPath itself. A link
  /// to nothing gives the name of the missing file. 0 or the error number.
  virtual int Resolve(const std::string& sPath, std::string& sTarget) {
    sTarget = sPath;
    return 0;
  }

  // The pieces of an atomic replacement, each 0 or the system's error number.
  virtual int CreateNew(const std::string& sPath, std::uint32_t lMode, int& hFile) = 0;
  virtual int Write(int hFile, std::string_view sBytes) = 0;
  virtual int SetOwner(int hFile, std::uint32_t lOwner, std::uint32_t lGroup) = 0;
  /// Gives an open file the extended attributes of another, its access list among them, ahead of
  /// its mode.
  virtual int CopyAttributes(const std::string& from, int file) = 0;
  virtual int SetMode(int hFile, std::uint32_t lMode) = 0;
  /// Begins to write an open file to the disk and doesn't wait. Flush does the same work when this
  /// does nothing.
  virtual int StartFlush(int) { return 0; }
  virtual int Flush(int hFile) = 0;
  /// Waits until the disk took the bytes of an open file, so that an error of theirs shows here and
  /// not at another file. They last only from a flush of the file or of its file system on.
  virtual int FlushBytes(int hFile) = 0;
  /// Which file system an open file is on. ENOTSUP where FlushFileSystem doesn't vouch for what it
  /// flushes.
  virtual int FileSystemOf(int hFile, std::uint64_t& lFileSystem) = 0;
  /// Flushes all that is on the file system of an open file, renames too. Its error may be any
  /// file's, of any program, since that file was opened.
  virtual int FlushFileSystem(int hFile) = 0;
  virtual int Close(int hFile) = 0;
  virtual int Rename(const std::string& sFrom, const std::string& sTo) = 0;
  virtual int Remove(const std::string& sPath) = 0;
  /// As Flush, for a file that was closed.
  virtual int FlushClosed(const std::string& sPath) = 0;
  virtual int FlushFolder(const std::string& sPath) = 0;
};

/// The system's file operations. The object lives until the process ends.
IFileOps& SystemFileOps();
