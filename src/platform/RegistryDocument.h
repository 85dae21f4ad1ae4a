// A whole file in registry export format, in memory: what was read stays byte for byte, what is
// set replaces or joins single lines. Knows no files; RegistryStore.h tells the format.
#pragma once

#include <map>

#include "RegistryLine.h"
#include "RegistryStore.h"

class RegistryDocument {
 public:
  /// Empty bytes begin a new file with its header.
  explicit RegistryDocument(std::string_view sBytes = {});
  std::string Bytes() const;
  const std::vector<RegistryStore::Problem>& Problems() const { return moProblems; }

  /// Keys and names ignore letter case and backslashes at the end of a key. A key exists when one
  /// below it does. Of several lines for one value the last one counts.
  bool HasKey(TextView sKey) const;
  /// Null when missing. Valid until the next change.
  const RegistryValue* Find(TextView sKey, TextView sName) const;
  std::vector<Text> Names(TextView sKey) const;
  /// Failure 5 when the file's encoding can't hold the value or the format the names.
  void Set(TextView sKey, TextView sName, const RegistryValue& oValue);
  bool Delete(TextView sKey, TextView sName);
  /// Failure 5 for a key that the format can't hold.
  static void CheckKey(TextView sKey);

 private:
  struct Entry {
    RegistryLine oLine;
    Text sFoldedName;
    std::size_t lKey = 0;  ///< number of the key it stands under; 0: none
    std::string sRaw;      ///< its bytes with line ends
  };
  enum class Encoding { Utf8, Ansi, Wide };

  void ChooseEncoding(std::string_view sBytes);
  void ReadEntries(std::string_view sBytes);
  void ReadHeader(std::string_view sRaw, TextView sLine);
  void AddEntry(Entry oEntry, std::size_t lLineNumber, std::size_t& lKey);
  std::string_view TakeLine(std::string_view& sRest) const;
  Text TextOf(std::string_view sRaw) const;
  std::string RawOf(TextView sLine) const;
  std::size_t NumberOfKey(TextView sKey);
  const Entry* FindEntry(TextView sKey, TextView sName) const;
  std::size_t EndOfKey(TextView sKey);
  void EndLastLine();

  std::string msMark;
  Encoding meEncoding = Encoding::Utf8;
  RegistryHex meHex = RegistryHex::Wide;
  Text msLineEnd = Text(CrLf);
  std::vector<Entry> moEntries;
  std::map<Text, std::size_t> moKeys;  ///< folded path to number from 1
  std::vector<RegistryStore::Problem> moProblems;
};
