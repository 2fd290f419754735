#include "project/catalogue.h"

#include <gmock/gmock.h>

#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

Project ProjectWith(const std::filesystem::path& folder, const std::string& settings) {
  test::WriteBytes(folder / "bench.ini", settings);
  return *Project::Open(folder, folder);
}

TEST(CatalogueFile, IsTheOneOfTheSetting) {
  const test::TemporaryFolder folder;
  const Project project = ProjectWith(folder.path(), "[environment]\nclampmdb = /shop/all.cld\n");
  EXPECT_EQ(CatalogueFile(project, "/mine/own.cld"), "/mine/own.cld");
  EXPECT_EQ(CatalogueFile(project, "\\mine\\own.cld"), "/mine/own.cld");
}

TEST(CatalogueFile, IsThatOfTheEnvironmentWhereTheSettingIsTooShort) {
  const test::TemporaryFolder folder;
  const Project project = ProjectWith(folder.path(), "[environment]\nclampmdb = /shop/all.cld\n");
  EXPECT_EQ(CatalogueFile(project, ""), "/shop/all.cld");
  EXPECT_EQ(CatalogueFile(project, "ab"), "/shop/all.cld");
}

TEST(CatalogueFile, IsInTheProjectWithoutAnySetting) {
  const test::TemporaryFolder folder;
  const Project project = ProjectWith(folder.path(), "");
  EXPECT_EQ(CatalogueFile(project, ""), project.folder() / "clampdevice.cld");
}

}  // namespace
}  // namespace vanzet::project
