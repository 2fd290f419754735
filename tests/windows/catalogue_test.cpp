#include <gtest/gtest.h>

#include "catalogue/device_catalogue.h"
#include "support/fake_host.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

class WindowsCatalogue : public testing::Test {
 protected:
  WindowsCatalogue() {
    host.environment["clampmdb"] = file.string();
    host.texts["$_return"] = "";
  }

  FakeHost host;
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "clampdevice.cld";
};

TEST_F(WindowsCatalogue, IsReadAndWrittenWithCarriageReturns) {
  const std::string text = "Chuck \xD8 160\r\n1 100.0 50.0\r\nJaw\r\n9 30.0 20.0\r\n";
  WriteBytes(file, text);
  CDevice device;
  ASSERT_TRUE(device.ReadFile());
  std::vector<std::string> chucks;
  device.NamesOfType(1, chucks);
  EXPECT_EQ(chucks, std::vector<std::string>{"Chuck \xD8 160"}) << "bytes as they are";
  ASSERT_TRUE(device.WriteFile());
  EXPECT_EQ(ReadBytes(file), text);
}

TEST_F(WindowsCatalogue, OfLinuxGetsCarriageReturns) {
  WriteBytes(file, "Jaw\n9 30.0 20.0\n");
  CDevice device;
  const auto changed = device.ChangeFile([&] {
    device.PutDevice("Chuck", "1 100.0");
    return true;
  });
  ASSERT_TRUE(changed && *changed);
  EXPECT_EQ(ReadBytes(file), "Jaw\r\n9 30.0 20.0\r\nChuck\r\n1 100.0\r\n");
}

}  // namespace
}  // namespace vanzet::test
