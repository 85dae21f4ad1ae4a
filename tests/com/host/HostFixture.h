// An IDE over a copy of the samples, as COM objects. At the end none of them may live.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "HostObjects.h"
#include "Late.h"
#include "TempFolder.h"

using Files = std::map<std::string, std::string>;

inline Files FilesOf(const std::filesystem::path& folder) {
  Files files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      files[entry.path().lexically_relative(folder).string()] =
          TempFolder::Read(entry.path().string());
  return files;
}

class HostFixture : public testing::Test {
 protected:
  HostFixture() { OleInitialize(nullptr); }
  ~HostFixture() override { OleUninitialize(); }
  void SetUp() override { Open(CopyOfSamples("ide") / "Atelier.vbg"); }
  void TearDown() override { Close(); }

  std::filesystem::path CopyOfSamples(const char* name) {
    const auto copy = std::filesystem::path(folder.Path()) / name;
    std::filesystem::copy(QUILLON_SOURCE_DIR "/samples", copy,
                          std::filesystem::copy_options::recursive);
    return copy;
  }
  void Open(const std::filesystem::path& group) {
    Close();
    disk = DiskIDE::Open(group.generic_string(), {});
    world = std::make_unique<HostWorld>(*disk);
    ide = Late::Owned(MakeIde(*world));
  }
  void Close() {
    ide = {};
    if (!world) return;
    EXPECT_EQ(world->Alive(), 0);
    if (HasFailure()) world->Print(std::cout);
    world.reset();  // ahead of what it shows
  }
  Late Component(const Late& project, const Late& component) const {
    return ide("VBProjects")("Item", project)("VBComponents")("Item", component);
  }
  Late Module() const { return Component(u"AtelierCore", u"CPrices")("CodeModule"); }

  TempFolder folder;
  std::unique_ptr<DiskIDE> disk;
  std::unique_ptr<HostWorld> world;
  Late ide;
};
