// The record of a run that writes files: what every file held before, and what it holds behind.
// Bytes in, values out; where a record is kept is RunStore's business.
//
// A record grows while the run is at work, so that it is a sequence of pieces, each of which tells
// its kind, its length and a sum over its bytes:
//
//   the line "Tarvane Quillon run 1"
//   H  who: command, start, process, groups
//   F  a file, repeated
//   E  the run is complete; which of the files it didn't replace after all
//
// Numbers are eight bytes, the lowest first; a text is its length and its bytes. A program that
// doesn't know the number in the first line reads no further.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "PackedBytes.h"

struct RunHead {
  std::string command;              ///< as a person would type it
  std::int64_t startedAt = 0;       ///< seconds since 1970
  std::int64_t process = 0;         ///< its number
  std::vector<std::string> groups;  ///< real paths of the groups, projects and folders it was given
  bool operator==(const RunHead&) const = default;
};

struct RunFile {
  std::string path;     ///< real path of the file that is replaced
  std::string newFile;  ///< the new one, which waits beside it
  ContentMark before, after;
  std::string packed;  ///< the bytes of before
  bool operator==(const RunFile&) const = default;
};

struct RunRecord {
  enum class Form {
    Whole,
    CutOff,        ///< ends within a piece, as when its program was killed while writing it
    Damaged,       ///< what stands ahead of the damage was read
    OtherVersion,  ///< nothing was read
  };
  Form form = Form::Whole;
  bool hasHead = false;
  RunHead head;
  std::vector<RunFile> files;  ///< once the run is complete, those that it replaced
  bool isComplete = false;
};

/// With it a record begins.
std::string BytesOf(const RunHead& head);
std::string BytesOf(const RunFile& file);
/// kept: the numbers, from 0, of the files that weren't replaced.
std::string EndBytes(const std::vector<std::size_t>& kept);

/// Never fails; the form tells how far it came.
RunRecord ReadRun(std::string_view bytes);
