#include "base/files/regular_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

class RegularFile : public testing::Test {
 protected:
  static std::string Refusal(const fs::path& file) {
    const auto bytes = ReadWholeFile(file);
    return bytes ? "read" : bytes.fault().Message();
  }

  const test::TemporaryFolder folder;
  const fs::path file = folder / "a";
};

TEST_F(RegularFile, IsReadWhole) {
  for (const std::string& bytes : {std::string(), std::string("one\0two\r\n", 9), std::string(300000, 'x')}) {
    test::WriteBytes(file, bytes);
    const auto read = ReadWholeFile(file);
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, bytes);
  }
}

TEST_F(RegularFile, IsReadThroughALink) {
  test::WriteBytes(file, "text");
  fs::create_symlink("a", folder / "link");
  EXPECT_EQ(*ReadWholeFile(folder / "link"), "text");
  EXPECT_TRUE(CheckRegularFile(folder / "link"));
}

TEST_F(RegularFile, ThatDoesNotExistIsMissing) {
  EXPECT_EQ(Refusal(file), file.string() + ": cannot be read: No such file or directory");
  EXPECT_EQ(ReadWholeFile(file).fault().kind, FaultKind::kMissing);
  EXPECT_TRUE(CheckRegularFile(file)) << "the library that opens it says so";
}

TEST_F(RegularFile, IsNotAPipeADeviceOrAFolder) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", folder / "zeros");
  for (const fs::path& other : {folder / "pipe", folder / "zeros", folder.path(), fs::path("/dev/null")}) {
    EXPECT_EQ(Refusal(other), other.string() + ": is not a regular file");
    ASSERT_FALSE(CheckRegularFile(other));
    EXPECT_EQ(CheckRegularFile(other).fault().Message(), other.string() + ": is not a regular file");
  }
}

TEST_F(RegularFile, LargerThanTheLimitIsRefused) {
  test::WriteBytes(file, std::string(2 << 20, 'x'));
  EXPECT_TRUE(ReadWholeFile(file, 2 << 20));
  test::WriteBytes(file, std::string((2 << 20) + 1, 'x'));
  const auto read = ReadWholeFile(file, 2 << 20);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.fault().Message(), file.string() + ": is larger than 2 MiB");
}

}  // namespace
}  // namespace vanzet::files
