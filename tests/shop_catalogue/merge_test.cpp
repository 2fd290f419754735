#include "catalogue/merge.h"

#include "catalogue/comparison.h"
#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Chuck(const std::string& name, int b) {
  return name + "\n1 80 " + std::to_string(b) + " 20\n";
}

/// A merge, and what came of it.
class CatalogueMerge : public testing::Test {
 protected:
  std::vector<std::string> MergeOf(const std::string& mine, const std::string& other,
                                   const char* base = nullptr, Prefer prefer = Prefer::kNeither) {
    merged = ShopOf(mine);
    const Shop former = ShopOf(base == nullptr ? "" : base);
    const auto all = Merge(merged, ShopOf(other), base == nullptr ? nullptr : &former, prefer);
    std::vector<std::string> lines;
    if (!all) return {all.fault().text};
    for (const Merged& each : *all) {
      lines.push_back(each.name + " " + WordOf(each.outcome) +
                      (each.reason.empty() ? "" : ": " + each.reason));
    }
    return lines;
  }

  std::vector<std::string> Devices() const {
    std::vector<std::string> devices;
    for (const Entry& entry : merged.catalogue.entries())
      devices.push_back(entry.name + std::to_string(static_cast<int>(entry.params.B)));
    return devices;
  }

  Shop merged;
};

TEST_F(CatalogueMerge, WithoutABaseAddsAndNamesWhatDiffers) {
  EXPECT_THAT(MergeOf(Chuck("a", 90) + Chuck("b", 90) + Chuck("m", 90),
                      Chuck("b", 91) + Chuck("n", 92) + Chuck("a", 90)),
              ElementsAre("b conflict: B 90 -> 91", "n added", "a same"));
}

TEST_F(CatalogueMerge, TakesThePreferredSide) {
  EXPECT_THAT(MergeOf(Chuck("b", 90), Chuck("b", 91), nullptr, Prefer::kOther),
              ElementsAre("b changed: B 90 -> 91"));
  EXPECT_THAT(Devices(), ElementsAre("b91"));
  EXPECT_THAT(MergeOf(Chuck("b", 90), Chuck("b", 91), nullptr, Prefer::kMine), ElementsAre("b kept"));
  EXPECT_THAT(Devices(), ElementsAre("b90"));
}

TEST_F(CatalogueMerge, WithABaseTakesTheChangesOfBoth) {
  const std::string base = Chuck("mine", 90) + Chuck("other", 90) + Chuck("gone", 90) + Chuck("left", 90);
  EXPECT_THAT(
      MergeOf(Chuck("mine", 91) + Chuck("other", 90) + Chuck("gone", 90),
              Chuck("mine", 90) + Chuck("other", 92) + Chuck("left", 90) + Chuck("new", 93), base.c_str()),
      ElementsAre("mine kept", "other changed: B 90 -> 92", "left kept", "new added", "gone removed"));
  EXPECT_THAT(Devices(), ElementsAre("mine91", "other92", "new93"));
}

TEST_F(CatalogueMerge, WithABaseNamesWhatBothChanged) {
  const std::string base = Chuck("a", 90) + Chuck("b", 90) + Chuck("c", 90) + Chuck("d", 90);
  EXPECT_THAT(MergeOf(Chuck("a", 91) + Chuck("c", 91) + Chuck("d", 92),
                      Chuck("a", 92) + Chuck("b", 91) + Chuck("d", 92), base.c_str()),
              ElementsAre("a conflict: B 91 -> 92", "b conflict: removed here, changed there", "d same",
                          "c conflict: changed here, removed there"));
}

TEST_F(CatalogueMerge, RefusesADeviceWithoutASolidAndTakesTheOthers) {
  EXPECT_THAT(MergeOf("", "bad\n1 80 90 100\nodd\n77 5\n" + Chuck("good", 90)),
              ElementsAre("bad refused: C (100) must be less than A (80)",
                          "odd refused: the type of the device is unknown", "good added"));
  EXPECT_THAT(Devices(), ElementsAre("good90"));
}

TEST_F(CatalogueMerge, ComparesValuesNotBytes) {
  EXPECT_THAT(MergeOf("a\n1 80.000000 90 20 0 0\n", "a\r\n1 80 90 20 5\r\n"), ElementsAre("a same"));
}

/// Every merge of three states of a device gives what a person expects of a merge.
TEST_F(CatalogueMerge, OfAnyThreeStatesKeepsTheLawsOfMerging) {
  const std::vector<std::string> states = {"", Chuck("a", 90), Chuck("a", 91), Chuck("a", 92)};
  for (const std::string& base : states) {
    for (const std::string& mine : states) {
      for (const std::string& other : states) {
        const auto lines = MergeOf(mine, other, base.c_str());
        const bool isConflict = mine != base && other != base && mine != other;
        const bool hasConflict = !lines.empty() && lines.front().starts_with("a conflict");
        EXPECT_EQ(hasConflict, isConflict) << base << mine << other;
        if (isConflict) continue;
        const Shop expected = ShopOf(mine == base ? other : mine);
        EXPECT_THAT(DifferencesOf(expected, merged), IsEmpty()) << base << mine << other;
      }
    }
  }
}

TEST(CatalogueMergeOfMakerData, BringsThoseOfTheDevicesThatItTakes) {
  Shop mine = ShopOf(Chuck("same", 90) + Chuck("own", 90));
  Shop other = ShopOf(Chuck("same", 90) + Chuck("own", 90) + Chuck("new", 90));
  ASSERT_TRUE(mine.maker.Set("own", "stroke", "5"));
  for (const char* const name : {"same", "own", "new"}) ASSERT_TRUE(other.maker.Set(name, "stroke", "6"));
  const auto all = Merge(mine, other, nullptr);
  ASSERT_TRUE(all);
  EXPECT_EQ((*mine.maker.Find("same"))["stroke"], 6);
  EXPECT_EQ((*mine.maker.Find("new"))["stroke"], 6);
  EXPECT_EQ((*mine.maker.Find("own"))["stroke"], 5);
  EXPECT_EQ(all->at(1).reason, "other maker data there: stroke 5 -> 6");
}

TEST(CatalogueDifferences, AreInTheTermsOfTheDevices) {
  EXPECT_THAT(ChangesOf(ChuckOf(80, 90, 20), ChuckOf(105, 90, 26.5)),
              ElementsAre("A 80 -> 105", "C 20 -> 26.5"));
  EXPECT_THAT(ChangesOf(ChuckOf(80, 90, 20), {.type = 2, .A = 80, .B = 90, .C = 20}),
              ElementsAre("kind chuck -> collet"));
}

}  // namespace
}  // namespace vanzet::test
