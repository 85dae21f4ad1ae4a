// The part of a source file that the editor never shows: VERSION line, designer or class block,
// module attributes.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "CodePage.h"
#include "SourceDocument.h"

class HeaderBlock {
 public:
  /// Looks at the beginning of sBytes and keeps nothing of it but what it says.
  HeaderBlock(std::string_view sBytes, const CodePage& oPage);

  /// Bytes of the header; the first line of code begins there.
  std::size_t Length() const { return mlLength; }
  /// True when the file ends within a block: the header then took all of it.
  bool IsOpen() const { return mbOpen; }
  const std::vector<DesignerBlock>& Blocks() const { return moBlocks; }
  Text RootProperty(TextView sName) const;
  Text ModuleAttribute(TextView sName) const;

 private:
  struct Entry {
    Text sName;
    Text sValue;
  };

  class Reader;

  std::size_t mlLength = 0;
  bool mbOpen = false;
  std::vector<DesignerBlock> moBlocks;
  std::vector<Entry> moProperties;
  std::vector<Entry> moAttributes;
};
