// The constants of conditional compilation that a file is read with. A file of several projects is
// one document, read with the constants of the first project that the scope names.
//
//   ProjectConstants constants;
//   constants.Add({u"Orders", ordersFile.oConstants, true});
//   SourceDocument document(bytes, page, false, constants.ToReadWith());
//   constants.FirstConflict(document);   // the directive that another project reads otherwise
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "SourceDocument.h"
#include "Text.h"

/// A directive that asks for a constant which two projects give different values. A constant that
/// a project doesn't give is 0, but for those of the language itself.
struct ConstantConflict {
  Text file;
  std::int32_t line = 0;  ///< in the file, from 1
  Text constant;          ///< in lower case
  Text project;           ///< which the file is read for
  std::int32_t value = 0;
  Text otherProject;
  std::int32_t otherValue = 0;
};

class ProjectConstants {
 public:
  struct Owner {
    Text project;
    const std::vector<CondConstant>& constants;  ///< outlive the owner; the last of a name holds
    bool inScope = true;
  };

  bool IsShared() const { return mOwners.size() > 1; }
  void Add(Owner owner) { mOwners.push_back(std::move(owner)); }
  /// There is at least one owner.
  const std::vector<CondConstant>& ToReadWith() const { return Reader().constants; }
  /// Among the projects of the scope; nothing when all of them read the text alike. The file isn't
  /// filled in.
  std::optional<ConstantConflict> FirstConflict(const SourceDocument& document) const;

 private:
  const Owner& Reader() const;

  std::vector<Owner> mOwners;
};
