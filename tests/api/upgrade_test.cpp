#include "api/upgrade.h"

#include "api/host_fixture.h"
#include "support/vdm_values.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Upgrade : public HostTest {
 protected:
  Upgrade() { WriteBytes(folder / "machine.ini", "[COMMON]\nNR_SPINDEL_SPUR=2\n"); }

  Result<void> WhereNeeded() {
    return api::UpgradeWhereNeeded(VANZET_MODULE_FILE, *host,
                                   [this](const std::string& sentence) { announced.push_back(sentence); });
  }

  void Store(std::uint32_t number, const std::string& version) {
    ASSERT_TRUE(host->store.Replace(number, VdmOf({{"1 1 1 2", "Billet definition", version}})));
  }

  std::vector<std::string> announced;
};

TEST_F(Upgrade, CreatesMissingDefinitionsOnceAndSaysSo) {
  ASSERT_TRUE(WhereNeeded());
  EXPECT_THAT(announced, ElementsAre("2 definitions are missing and are created first"));
  EXPECT_EQ(host->store.Snapshot(1001)->Size(), 18U);
  ASSERT_TRUE(WhereNeeded());
  EXPECT_EQ(announced.size(), 1U);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(Upgrade, OfAnOlderDefinitionBesideAMissingOneNamesBoth) {
  Store(1000, "99");
  ASSERT_TRUE(WhereNeeded());
  EXPECT_THAT(announced, ElementsAre("1 definition is missing and is created first; 1 definition is of an "
                                     "older version and is upgraded first"));
  const auto states = api::UpgradeDefinitions(VANZET_MODULE_FILE, *host);
  ASSERT_TRUE(states);
  EXPECT_EQ(states->at(0).version, 100);
  EXPECT_EQ(states->at(1).operations, 18U);
}

TEST_F(Upgrade, LeavesANewerDefinitionWhereOthersAreMissing) {
  Store(1001, "101");
  const auto upgraded = WhereNeeded();
  ASSERT_FALSE(upgraded);
  EXPECT_EQ(upgraded.fault().text,
            "spur 1: VDM 1001 has version 101, which is newer than this program; it must not be upgraded");
  EXPECT_THAT(announced, IsEmpty());
  EXPECT_EQ(host->store.Snapshot(1001)->Size(), 1U);
}

}  // namespace
}  // namespace vanzet::test
