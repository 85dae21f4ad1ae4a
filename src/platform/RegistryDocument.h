// A whole file in registry export format, in memory: what was read stays byte for byte, what is
// set replaces or joins single lines. Knows no files; RegistryStore.h tells the format.
#pragma once

#include <map>

#include "RegistryLine.h"
#include "RegistryStore.h"

class RegistryDocument {
 public:
  /// Empty bytes begin a new file with its header.
  explicit RegistryDocument(std::string_view bytes = {});
  std::string Bytes() const;
  const std::vector<RegistryStore::Problem>& Problems() const { return mProblems; }

  /// Keys and names ignore letter case and backslashes at the end of a key. A key exists when one
  /// below it does. Of several lines for one value the last one counts.
  bool HasKey(TextView key) const;
  /// Null when missing. Valid until the next change.
  const RegistryValue* Find(TextView key, TextView name) const;
  std::vector<Text> Names(TextView key) const;
  /// Failure 5 when the file's encoding can't hold the value or the format the names.
  void Set(TextView key, TextView name, const RegistryValue& value);
  bool Delete(TextView key, TextView name);
  /// Failure 5 for a key that the format can't hold.
  static void CheckKey(TextView key);

 private:
  struct Entry {
    RegistryLine line;
    Text foldedName;
    std::size_t keyNumber = 0;  ///< number of the key it stands under; 0: none
    std::string raw;            ///< its bytes with line ends
  };
  enum class Encoding { Utf8, Ansi, Wide };

  void ChooseEncoding(std::string_view bytes);
  void ReadEntries(std::string_view bytes);
  void ReadHeader(std::string_view raw, TextView line);
  void AddEntry(Entry entry, std::size_t lineNumber, std::size_t& keyNumber);
  std::string_view TakeLine(std::string_view& rest) const;
  Text TextOf(std::string_view raw) const;
  std::string RawOf(TextView line) const;
  std::size_t NumberOfKey(TextView key);
  const Entry* FindEntry(TextView key, TextView name) const;
  std::size_t EndOfKey(TextView key);
  void EndLastLine();

  std::string mMark;
  Encoding mEncoding = Encoding::Utf8;
  RegistryHex mHex = RegistryHex::Wide;
  Text mLineEnd = Text(CrLf);
  std::vector<Entry> mEntries;
  std::map<Text, std::size_t> mKeys;  ///< folded path to number from 1
  std::vector<RegistryStore::Problem> mProblems;
};
