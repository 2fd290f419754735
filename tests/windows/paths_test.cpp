#include <gtest/gtest.h>

#include "base/files/windows_api.h"
#include "base/path_map.h"
#include "platform/files.h"
#include "platform/host_text.h"
#include "platform/private_profile.h"
#include "platform/split_path.h"
#include "support/temporary_folder.h"

namespace vanzet {
namespace {

using platform::SplitPath;
using test::TemporaryFolder;

TEST(WindowsPath, WithADriveGoesToTheSystemAsItIs) {
  EXPECT_EQ(PathMap().Resolve(R"(Q:\Shop\X.vdm)"), LR"(Q:\Shop\X.vdm)");
  EXPECT_EQ(PathMap().Resolve("q:/Shop/X.vdm"), LR"(q:\Shop\X.vdm)");
}

TEST(WindowsPath, OfAServerGoesToTheSystemAsItIs) {
  EXPECT_EQ(PathMap().Resolve(R"(\\server\share\x.cld)").native(), LR"(\\server\share\x.cld)");
  EXPECT_EQ(PathMap().Resolve("//server/share/x.cld").native(), LR"(\\server\share\x.cld)");
}

TEST(WindowsPath, OfAListedDriveHasItsRoot) {
  const PathMap map({{'D', R"(\\server\share)"}});
  EXPECT_EQ(map.Resolve(R"(d:\own\x.vdm)").native(), LR"(\\server\share\\own\x.vdm)");
  EXPECT_EQ(map.Resolve(R"(E:\own\x.vdm)").native(), LR"(E:\own\x.vdm)");
}

TEST(WindowsPath, IsEmptyForAnEmptyText) {
  EXPECT_TRUE(PathMap().Resolve("").empty());
}

TEST(WindowsPath, OfManyCharactersIsWhole) {
  const std::string folder(300, 'd');
  EXPECT_EQ(PathMap().Resolve("Q:\\" + folder + "\\..\\x").native(),
            LR"(Q:\)" + std::wstring(300, 'd') + LR"(\..\x)")
      << "short when it is whole";
  EXPECT_EQ(PathMap().Resolve("Q:/" + folder + "/x").native(),
            LR"(\\?\Q:\)" + std::wstring(300, 'd') + LR"(\x)");
  EXPECT_EQ(PathMap().Resolve("\\\\server\\share\\" + folder).native(),
            LR"(\\?\UNC\server\share\)" + std::wstring(300, 'd'));
}

TEST(WindowsPath, OfManyCharactersIsReadAndWritten) {
  const TemporaryFolder folder;
  std::wstring name = LR"(\\?\)" + folder.path().native();
  std::string text = folder.path().string();
  for (int i = 0; i < 3; ++i) {
    name += LR"(\)" + std::wstring(100, 'd');
    text += "\\" + std::string(100, 'd');
    ASSERT_NE(CreateDirectoryW(name.c_str(), nullptr), 0);
  }
  test::WriteBytes(folder / "a.vdm", "a");
  EXPECT_TRUE(platform::CopyWholeFile((folder / "a.vdm").string(), text + "\\b.vdm"));
  EXPECT_TRUE(platform::IsReadableFile(text + "\\b.vdm"));
  DeleteFileW((name + LR"(\b.vdm)").c_str());
}

/// The folder of a share, which tools/test-windows makes.
TEST(WindowsPath, OfAServerIsReadAndWritten) {
  const std::string share = R"(\\server\share\)";
  ASSERT_TRUE(CreateDirectoryA((share + "shop").c_str(), nullptr) != 0 ||
              GetLastError() == ERROR_ALREADY_EXISTS);
  const TemporaryFolder folder;
  test::WriteBytes(folder / "a.ini", "[COMMON]\r\nMACHINE_NAME=of the server\r\n");
  const std::string ini = share + R"(shop\machine.ini)";
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(platform::CopyWholeFile((folder / "a.ini").string(), ini));
  EXPECT_EQ(platform::ReadProfileText("COMMON", "MACHINE_NAME", "-1", ini), "of the server");
}

TEST(WindowsPath, MayHaveUmlautsInUtf8AndInTheCodePage) {
  const TemporaryFolder folder;
  test::WriteBytes(folder / "machine.ini", "[COMMON]\r\nMACHINE_NAME=Große\r\n");
  const std::string utf8 = folder.path().string() +
                           "\\Gr\xC3\xB6\xC3\x9F"
                           "e.ini";
  const std::string codePage = folder.path().string() +
                               "\\Gr\xF6\xDF"
                               "e.ini";
  ASSERT_TRUE(platform::CopyWholeFile((folder / "machine.ini").string(), codePage));
  EXPECT_TRUE(platform::IsReadableFile(codePage));
  EXPECT_TRUE(platform::IsReadableFile(utf8));
  EXPECT_EQ(platform::ReadProfileText("COMMON", "MACHINE_NAME", "-1", utf8), "Große") << "bytes as they are";
}

TEST(WindowsSplitPath, TakesTheShareOfAServerForTheDrive) {
  const auto parts = SplitPath(R"(\\server\share\shop\machine.ini)");
  EXPECT_EQ(parts.drive, R"(\\server\share)");
  EXPECT_EQ(parts.directory, R"(\shop\)");
  EXPECT_EQ(parts.name, "machine");
  EXPECT_EQ(parts.extension, ".ini");
}

TEST(WindowsSplitPath, KnowsNoDriveInAPathFromTheRoot) {
  for (const char* path :
       {"/shop/machine.ini", R"(\shop\machine.ini)", "\\\\", R"(\\server)", R"(\\server\)", "//"}) {
    EXPECT_EQ(SplitPath(path).drive, "") << path;
  }
  EXPECT_EQ(SplitPath("D:machine.ini").drive, "D:");
}

TEST(WindowsSplitPath, GivesThePathAgainWhenItIsJoined) {
  for (const char* path : {R"(\\server\share\x.ini)", R"(D:\own\chuck.vdm)", "machine.ini", "/a/b.c", ""}) {
    EXPECT_EQ(platform::JoinPath(SplitPath(path)), path);
  }
}

TEST(WindowsDrives, AreThoseThatTheHostHasSetInTheEnvironment) {
  SetEnvironmentVariableW(L"VANZET_DRIVES", L"D:=C:\\Gr\u00F6\u00DFe");
  EXPECT_EQ(platform::FileOf(R"(D:\x.vdm)").native(), L"C:\\Gr\u00F6\u00DFe\\\\x.vdm");
  SetEnvironmentVariableW(L"VANZET_DRIVES", nullptr);
  EXPECT_EQ(platform::FileOf(R"(D:\x.vdm)").native(), LR"(D:\x.vdm)");
}

TEST(WindowsHostText, IsInTheCodePage) {
  ASSERT_EQ(GetACP(), 1252U);
  EXPECT_EQ(platform::HostText("W\xC3\xA4hlen Sie"), "W\xE4hlen Sie");
  EXPECT_EQ(platform::HostText("\xE2\x86\x92"), "?") << "an arrow, which the code page lacks";
}

}  // namespace
}  // namespace vanzet
