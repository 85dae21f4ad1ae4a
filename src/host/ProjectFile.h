// The texts of a project group (.vbg) and of a project (.vbp), read into plain values. Reading
// never fails: a line that isn't understood is passed over, one that matters and can't be used
// gives a note.
//
//   Type=OleDll                          Module=Helpers; Common\Helpers.bas
//   Class=Order; Order.cls               Form=Main.frm
//   ResFile32="Strings.res"              CondComp="DEMO = -1 : TRIAL = 0"
//
// Keys ignore letter case. Component entries end at the first section such as [VBCompiler]: other
// tools keep keys of their own there. Paths stay as written; PathFinder finds the files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "SourceDocument.h"
#include "Text.h"
#include "VBProject.h"

/// Something odd in such a text. lLine from 1; 0: the text as a whole.
struct LineNote {
  std::size_t lLine = 0;
  Text sMessage;
};

struct GroupFile {
  struct Entry {
    Text sPath;  ///< as written, without quotes
    std::size_t lLine = 0;
  };
  std::vector<Entry> oProjects;  ///< in the order of the text; repeated ones included
  std::vector<LineNote> oNotes;

  static GroupFile Parse(TextView sText);
};

/// A constant as a project states it, such as `DEMO = -1`; nothing when the text is none. Values
/// are whole numbers, True and False.
std::optional<CondConstant> ConstantOf(TextView text);

struct ProjectFile {
  struct Entry {
    ComponentType nType = ComponentType::StdModule;  ///< by the key alone; every form is a VBForm
    Text sName;                                      ///< modules and classes; others: empty
    Text sPath;                                      ///< as written, without quotes
    std::size_t lLine = 0;
  };
  /// False when the text has neither a type nor a component: it is something else.
  bool bProject = false;
  Text sName = u"Project1";
  ProjectType nType = ProjectType::StandardExe;
  std::vector<CondConstant> oConstants;
  std::vector<Entry> oComponents;  ///< no two of one name
  std::vector<LineNote> oNotes;

  static ProjectFile Parse(TextView sText);
};
