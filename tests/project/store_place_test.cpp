#include "project/store_place.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "project/project.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

TEST(StorePlace, TellsConnectionTextsFromFolders) {
  for (const char* const text : {"postgresql://", "postgres://a/b", "host=a dbname=b", "service = shop"}) {
    EXPECT_TRUE(IsConnectionText(text)) << text;
  }
  for (const char* const text : {"", "lathe", "./a=b", "/srv/a=b", "=b", "A=b", "file://x"}) {
    EXPECT_FALSE(IsConnectionText(text)) << text;
  }
}

class StoreOfProject : public testing::Test {
 protected:
  ~StoreOfProject() override { unsetenv("VANZET_STORE"); }

  Result<StorePlace> Place(const std::string& ini) {
    test::WriteBytes(folder_ / "lathe 7/bench.ini", ini);
    VANZET_TRY(const auto project, Project::Open(folder_ / "lathe 7", VANZET_SOURCE_DIR "/share"));
    return project.settings().store;
  }

 private:
  const test::TemporaryFolder folder_;
};

TEST_F(StoreOfProject, HasTheNameOfTheFolderUnlessTheSettingsGiveIt) {
  EXPECT_EQ(Place("")->project, "lathe 7");
  EXPECT_EQ(Place("[store]\nproject=\n")->project, "lathe 7");
  EXPECT_EQ(Place("[store]\nproject=job\n")->project, "job");
}

TEST_F(StoreOfProject, IsWhereTheEnvironmentSays) {
  const std::string ini = "[store]\nengine=host=/nowhere\n";
  setenv("VANZET_STORE", "postgresql://db/vanzet", 1);
  EXPECT_EQ(Place(ini)->connection, "postgresql://db/vanzet");
  setenv("VANZET_STORE", "store.db", 1);
  EXPECT_EQ(Place(ini)->connection, "");
  setenv("VANZET_STORE", "", 1);
  EXPECT_EQ(Place(ini)->connection, "host=/nowhere");
  setenv("VANZET_STORE", "secret", 1);
  EXPECT_EQ(Place(ini).fault().Message(),
            "VANZET_STORE: expected 'store.db' or the connection text of a PostgreSQL server: "
            "'postgresql://...' or 'host=... dbname=...'");
}

}  // namespace
}  // namespace vanzet::project
