// Where a group may write, and that it writes nowhere else.
#include "WriteRoots.h"

#include <functional>
#include <map>

#include "DiskIDE.h"
#include "FaultyFileOps.h"
#include "PathText.h"
#include "ProjectTree.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* Code = "Sub A()\r\nEnd Sub\r\n";

TEST(WriteRoots, JudgesRealPaths) {
  struct Row {
    const char *name, *root, *path;
    WriteRefusal expected;
  };
  for (const Row& row : {
           Row{"below", "/src/app", "/src/app/sub/a.bas", WriteRefusal::None},
           Row{"any letter case", "/src/app", "/src/app/A.Dsr", WriteRefusal::None},
           Row{"a name that begins alike", "/src/app", "/src/apps/a.bas", WriteRefusal::Outside},
           Row{"everywhere", "/", "/a.bas", WriteRefusal::None},
           Row{"a slash at the root's end", "/src/", "/src/a.cls", WriteRefusal::None},
           Row{"dot-folder", "/src", "/src/.git/a.bas", WriteRefusal::DotFolder},
           Row{"deeper", "/", "/src/.git/hooks/a.bas", WriteRefusal::DotFolder},
           Row{"above the root", "/u/.local/src", "/u/.local/src/a.bas", WriteRefusal::None},
           Row{"outside with a dot", "/src", "/u/.config/a.bas", WriteRefusal::DotFolder},
           Row{"dot-file", "/src", "/src/.a.bas", WriteRefusal::None},
           Row{"extension", "/src", "/src/config", WriteRefusal::ForeignExtension},
           Row{"nothing but one", "/src", "/src/.bas", WriteRefusal::ForeignExtension},
           Row{"one more", "/", "/src/a.bas.txt", WriteRefusal::ForeignExtension},
       }) {
    SCOPED_TRACE(row.name);
    WriteRoots roots;
    roots.Add(row.root);
    EXPECT_EQ(roots.Refusal(row.path), row.expected);
    EXPECT_EQ(roots.Reason(row.path).empty(), row.expected == WriteRefusal::None);
  }
}

/// A group whose project names files of all kinds; its work tree is `repo`, beside it is `out`.
struct HostileGroup : ProjectTree {
  struct Row {
    const char *name, *entry, *file;
    const char *reason, *withRoot;  ///< in the message; empty: it is written
  };
  const std::vector<Row> rows = {
      {"work tree", "..\\Shared\\a.bas", "repo/Shared/a.bas", "", ""},
      {"upwards", "..\\..\\out\\b.bas", "out/b.bas", "--root ", ""},
      {"absolute", "@\\out\\c.bas", "out/c.bas", "--root ", ""},
      {"link", "d.bas", "out/d.bas", "--root ", ""},
      {"linked folder", "Linked\\e.bas", "out/linked/e.bas", "--root ", ""},
      {"dot-folder", "..\\.git\\f.bas", "repo/.git/f.bas", "dot", "dot"},
      {"extension", "..\\config", "repo/config", "extensions", "extensions"},
  };

  FaultyFileOps files;

  HostileGroup() {
    std::string project = "Type=Exe\r\n";
    for (const Row& row : rows) {
      std::string entry = row.entry;
      if (entry[0] == '@') entry.replace(0, 1, Root());
      project += "Module=M" + std::to_string(project.size()) + "; " + entry + "\r\n";
      Write(row.file, Code);
    }
    Write("repo/App/App.vbp", project);
    fs::create_symlink("../../out/d.bas", Path("repo/App/d.bas"));
    fs::create_directory_symlink("../../out/linked", Path("repo/App/Linked"));
  }

  /// Changes each component, saves, and gives the messages by the file that is meant.
  std::map<std::string, std::string> Save(
      const std::vector<std::string>& roots, const std::function<void()>& meanwhile = [] {}) {
    DiskIDE::Options options;
    options.roots = roots;
    options.poFiles = &files;
    const auto ide = DiskIDE::Open(Path("repo/App/App.vbp"), options);
    VBComponents& components = ide->Root().VBProjects().Item(1).VBComponents();
    for (std::int32_t i = 1; i <= components.Count(); ++i)
      components.Item(i).CodeModule()->InsertLines(1, u"' mine");
    meanwhile();
    std::map<std::string, std::string> messages;
    const DiskIDE::SaveResult saved = ide->Save();
    for (const DiskIDE::Note& note : saved.oFailed)
      messages[fs::weakly_canonical(PathOfText(note.sFile)).string()] = ToUtf8(note.sMessage);
    return messages;
  }
};

TEST(WriteRoots, AHostileGroupWritesNothingOutside) {
  for (const bool isRootGiven : {false, true}) {
    HostileGroup group;
    auto messages =
        group.Save(isRootGiven ? std::vector<std::string>{"/"} : std::vector<std::string>{});
    for (const auto& row : group.rows) {
      SCOPED_TRACE(row.name);
      const std::string reason = isRootGiven ? row.withRoot : row.reason;
      EXPECT_EQ(group.Read(row.file), reason.empty() ? "' mine\r\n" + std::string(Code) : Code);
      const std::string& message = messages[group.Path(row.file)];
      EXPECT_NE(message.find(reason), std::string::npos) << message;
      EXPECT_EQ(message.find(group.Path(row.file)) == std::string::npos, reason.empty());
    }
  }
}

TEST(WriteRoots, ALinkThatCameAfterTheReadingLeadsNowhere) {
  for (const bool isStaged : {false, true}) {
    SCOPED_TRACE(isStaged ? "when the new file was made" : "ahead of the save");
    HostileGroup group;
    const auto swap = [&] {
      fs::rename(group.Path("repo/Shared"), group.Path("repo/Old"));
      fs::create_directory_symlink("../out", group.Path("repo/Shared"));
      group.Write("out/a.bas", Code);
      // What was made beside the old file could be there as well.
      for (const auto& entry : fs::directory_iterator(group.Path("repo/Old")))
        if (entry.path() != group.Path("repo/Old/a.bas"))
          fs::copy(entry.path(), fs::path(group.Path("out")) / entry.path().filename());
    };
    group.Save({}, [&] {
      if (isStaged) group.files.AtFlush = swap;
      if (!isStaged) swap();
    });
    EXPECT_EQ(group.Read("out/a.bas"), Code);
  }
}

TEST(WriteRoots, TheWorkTreeIsTheNearestOneUpwards) {
  const ProjectTree tree;
  for (const char* file : {"repo/.git/x", "repo/App/x", "repo/sub/.git", "repo/sub/deep/x", "no/x"})
    tree.Write(file, "");
  for (const auto& [folder, expected] : {std::pair{"repo/App", "repo"},
                                         {"repo/sub/deep", "repo/sub"},
                                         {"no", "no"},
                                         {"repo/.git", "repo"}})
    EXPECT_EQ(WorkTreeOf(tree.Path(folder), SystemFileOps()), tree.Path(expected));
}

TEST(WriteRoots, AreNarrowedAndNeverWidened) {
  using Folders = std::vector<std::string>;
  EXPECT_EQ(NarrowedRoots("/w", {}), Folders{"/w"});
  EXPECT_EQ(NarrowedRoots("/w", {"/w/a", "/x", "/wa", "/w/.git", "/w/a/.b/c"}), Folders{"/w/a"});
  EXPECT_EQ(NarrowedRoots("/w/g", {"/w"}), Folders{"/w/g"});
  EXPECT_EQ(NarrowedRoots("/w", {"/x"}), Folders{});
}

}  // namespace
