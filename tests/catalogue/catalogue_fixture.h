#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "catalogue/device_catalogue.h"
#include "support/fake_host.h"
#include "support/file_choices.h"
#include "support/temporary_folder.h"

namespace vanzet::test {

/// A host whose project has a clampdevice file in a folder of the test's own. The file is not there yet.
struct CatalogueWorld {
  CatalogueWorld() {
    host.texts = {{"$_return", "left over"}, {"$_COUNTRY", "_de"}, {"$_USER_DATA_SETTINGS", "/settings"}};
    host.onCommand = [this](const std::string& line) {
      if (line == "file e '' $_project 'CLAMP_DB_PATH' $_return") host.texts["$_return"] = setting;
    };
  }

  FakeHost host;
  FileChoices files;
  TemporaryFolder folder;
  std::filesystem::path file = folder / "clampdevice.cld";
  std::string setting = file.string();
};

class CatalogueTest : public testing::Test {
 protected:
  /// The names of a type, as a page lists them.
  static std::vector<std::string> Names(const CDevice& device, std::int32_t type) {
    std::vector<std::string> names = {"from before"};
    device.NamesOfType(type, names);
    return names;
  }

  /// The bytes of the file after a read and a write.
  std::string ReadAndWritten(const std::string& bytes) {
    WriteBytes(world.file, bytes);
    CDevice device;
    EXPECT_TRUE(device.ReadFile());
    EXPECT_TRUE(device.WriteFile());
    return ReadBytes(world.file);
  }

  CatalogueWorld world;
  FakeHost& host = world.host;
  FileChoices& files = world.files;
};

}  // namespace vanzet::test
