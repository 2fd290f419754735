#include <gtest/gtest.h>

#include <filesystem>

#include "sheet/address.h"
#include "support/temporary_folder.h"

namespace vanzet::sheet {
namespace {

TEST(Address, EscapesEverythingButPlainCharacters) {
  EXPECT_EQ(EscapedForAddress("Az09-._~"), "Az09-._~");
  EXPECT_EQ(EscapedForAddress("lathe 2/#%?"), "lathe%202%2F%23%25%3F");
  EXPECT_EQ(EscapedForAddress("Hülse"), "H%C3%BClse");
}

TEST(Address, IsThatOfTheWholePath) {
  const test::TemporaryFolder folder;
  const auto project = std::filesystem::canonical(folder.path()) / "shop 1" / "lathe";
  std::filesystem::create_directories(project);
  const std::string parent = AddressOf(project.parent_path());
  EXPECT_TRUE(parent.starts_with("file:///")) << parent;
  EXPECT_TRUE(parent.ends_with("/shop%201")) << parent;
  EXPECT_EQ(AddressOf(project), parent + "/lathe");
  EXPECT_EQ(AddressOf(project / ".." / "lathe"), parent + "/lathe");
}

TEST(Address, FollowsLinks) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder / "lathe");
  std::filesystem::create_directory_symlink(folder / "lathe", folder / "link");
  EXPECT_EQ(AddressOf(folder / "link"), AddressOf(folder / "lathe"));
}

}  // namespace
}  // namespace vanzet::sheet
