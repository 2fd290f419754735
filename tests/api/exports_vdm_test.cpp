#include <limits>
#include <random>

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t kNoHandle = 0xFFFFFFFF;

class VdmExports : public HostTest {
 protected:
  std::string Get(std::uint32_t handle) {
    char buffer[5000] = "untouched";
    OrvoMacroVdmSingleGetText(handle, buffer, 1);
    return buffer;
  }

  /// Makes a VDM of one record with these items and leaves it open.
  std::uint32_t Make(std::uint32_t number, const std::vector<std::string>& items) {
    const std::uint32_t handle = OrvoMacroVdmCreate(number, 0);
    OrvoMacroVdmInsertText(handle, items.front().c_str(), 1);
    OrvoMacroVdmSeek(handle, 0, 0);
    OrvoMacroVdmSingleSeek(handle, 1);
    for (std::size_t i = 1; i < items.size(); ++i) OrvoMacroVdmSingleAddText(handle, items[i].c_str(), 1);
    OrvoMacroVdmSeek(handle, 0, 0);
    return handle;
  }

  std::vector<std::string> Items(std::uint32_t handle, std::int32_t record = 0) {
    OrvoMacroVdmSeek(handle, record, 0);
    std::vector<std::string> items;
    for (std::string item = Get(handle); !item.empty(); item = Get(handle)) items.push_back(item);
    return items;
  }
};

TEST_F(VdmExports, MakeAVdmThatStaysWhenItIsClosed) {
  EXPECT_EQ(OrvoMacroVdmExists(7), 0);
  const std::uint32_t handle = Make(7, {"a", "b"});
  EXPECT_NE(handle, 0U);
  EXPECT_NE(handle, kNoHandle);
  EXPECT_EQ(OrvoMacroVdmExists(7), 1);
  EXPECT_EQ(OrvoMacroVdmCheckOpen(7), 1);
  OrvoMacroVdmClose(handle);
  EXPECT_EQ(OrvoMacroVdmCheckOpen(7), 0);
  Restart();
  const std::uint32_t again = OrvoMacroVdmOpen(7, 1);
  EXPECT_THAT(Items(again), ElementsAre("a", "b"));
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(VdmExports, RefuseWhatCannotBeMadeOrOpened) {
  Make(7, {"a"});
  EXPECT_EQ(OrvoMacroVdmCreate(7, 0), kNoHandle);
  EXPECT_EQ(OrvoMacroVdmOpen(7, 1), kNoHandle) << "open already";
  EXPECT_EQ(OrvoMacroVdmOpen(8, 1), kNoHandle) << "not there";
  EXPECT_EQ(panel.faults(), 3);
  EXPECT_EQ(panel.lines.size(), 2U) << "the cause of the first two is the same";
}

TEST_F(VdmExports, StartAtRecordZeroItemZeroAfterOpening) {
  OrvoMacroVdmClose(Make(7, {"a", "b"}));
  const std::uint32_t handle = OrvoMacroVdmOpen(7, 1);
  EXPECT_EQ(Get(handle), "a");
  EXPECT_EQ(Get(handle), "b");
  EXPECT_EQ(Get(handle), "");
}

TEST_F(VdmExports, StepForwardFromThePosition) {
  const std::uint32_t handle = Make(7, {"a", "b", "c", "d"});
  OrvoMacroVdmSingleSeek(handle, 1);
  OrvoMacroVdmSingleSeek(handle, 2);
  EXPECT_EQ(Get(handle), "d");
  OrvoMacroVdmSeek(handle, 0, 0);
  OrvoMacroVdmSingleSeek(handle, -1);
  EXPECT_EQ(Get(handle), "a");
}

TEST_F(VdmExports, AddBeforeThePositionAndMoveAfter) {
  const std::uint32_t handle = Make(7, {"a", "d"});
  OrvoMacroVdmSingleSeek(handle, 1);
  OrvoMacroVdmSingleAddText(handle, "b", 1);
  OrvoMacroVdmSingleAddText(handle, "c", 1);
  EXPECT_THAT(Items(handle), ElementsAre("a", "b", "c", "d"));
}

TEST_F(VdmExports, ReplaceAndDeleteAtThePosition) {
  const std::uint32_t handle = Make(7, {"a", "b", "c", "d"});
  OrvoMacroVdmSingleReplaceText(handle, "A", 1);
  OrvoMacroVdmSingleSeek(handle, 1);
  OrvoMacroVdmSingleDelete(handle, 0);
  OrvoMacroVdmSingleDelete(handle, -3);
  OrvoMacroVdmSingleDelete(handle, 2);
  EXPECT_THAT(Items(handle), ElementsAre("A", "d"));
  OrvoMacroVdmSeek(handle, 0, 0);
  OrvoMacroVdmSingleDelete(handle, std::numeric_limits<std::int32_t>::max());
  EXPECT_THAT(Items(handle), IsEmpty());
}

TEST_F(VdmExports, InsertAndRemoveRecords) {
  const std::uint32_t handle = Make(7, {"first"});
  OrvoMacroVdmSeek(handle, 1, 0);
  OrvoMacroVdmInsertText(handle, "last", 1);
  OrvoMacroVdmSeek(handle, 1, 0);
  OrvoMacroVdmInsertText(handle, "middle", 1);
  EXPECT_EQ(OrvoMacroVdmSize(handle), 3);
  OrvoMacroVdmSeek(handle, 0, 0);
  OrvoMacroVdmRemove(handle, 1);
  EXPECT_EQ(OrvoMacroVdmSize(handle), 2);
  EXPECT_THAT(Items(handle, 0), ElementsAre("middle"));
  EXPECT_THAT(Items(handle, 1), ElementsAre("last"));
}

TEST_F(VdmExports, HaveNoRecordWhereThereIsNone) {
  const std::uint32_t handle = Make(7, {"a"});
  for (const std::int32_t record : {-1, 2, 99, std::numeric_limits<std::int32_t>::max()}) {
    OrvoMacroVdmSeek(handle, record, 0);
    EXPECT_EQ(Get(handle), "");
    OrvoMacroVdmSingleAddText(handle, "x", 1);
    OrvoMacroVdmSingleReplaceText(handle, "x", 1);
    OrvoMacroVdmSingleDelete(handle, 1);
    OrvoMacroVdmRemove(handle, 1);
  }
  EXPECT_EQ(OrvoMacroVdmSize(handle), 1);
  EXPECT_THAT(Items(handle), ElementsAre("a"));
  OrvoMacroVdmSeek(handle, 99, 0);
  OrvoMacroVdmInsertText(handle, "appended", 1);
  EXPECT_THAT(Items(handle, 1), ElementsAre("appended"));
}

TEST_F(VdmExports, PassOverHandlesThatAreNotOpen) {
  OrvoMacroVdmClose(Make(7, {"a"}));
  for (const std::uint32_t handle : {std::uint32_t{0}, std::uint32_t{1}, std::uint32_t{12345}, kNoHandle}) {
    EXPECT_EQ(OrvoMacroVdmSize(handle), 0);
    EXPECT_EQ(Get(handle), "");
    OrvoMacroVdmSeek(handle, 0, 0);
    OrvoMacroVdmInsertText(handle, "x", 1);
    OrvoMacroVdmRemove(handle, 1);
    OrvoMacroVdmSingleSeek(handle, 1);
    OrvoMacroVdmSingleAddText(handle, "x", 1);
    OrvoMacroVdmSingleReplaceText(handle, "x", 1);
    OrvoMacroVdmSingleDelete(handle, 1);
    OrvoMacroVdmClose(handle);
  }
  EXPECT_THAT(Items(OrvoMacroVdmOpen(7, 1)), ElementsAre("a"));
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(VdmExports, RefuseAnItemThatNoReaderHasRoomFor) {
  const std::uint32_t handle = Make(7, {"a"});
  OrvoMacroVdmSingleAddText(handle, std::string(4999, 'x').c_str(), 1);
  EXPECT_THAT(panel.lines, IsEmpty());
  OrvoMacroVdmSingleAddText(handle, std::string(5000, 'x').c_str(), 1);
  OrvoMacroVdmSingleReplaceText(handle, std::string(5000, 'x').c_str(), 1);
  OrvoMacroVdmInsertText(handle, std::string(5000, 'x').c_str(), 1);
  EXPECT_EQ(panel.lines.size(), 3U);
  EXPECT_THAT(panel.lines, testing::Each(HasSubstr("4999")));
  EXPECT_EQ(OrvoMacroVdmSize(handle), 1);
  EXPECT_THAT(Items(handle), ElementsAre(std::string(4999, 'x'), "a"));
}

TEST_F(VdmExports, DeleteAVdmThatIsNotOpen) {
  const std::uint32_t handle = Make(7, {"a"});
  OrvoMacroVdmDelete(7);
  EXPECT_EQ(OrvoMacroVdmExists(7), 1);
  EXPECT_EQ(panel.lines.size(), 1U) << "refused while it is open";
  OrvoMacroVdmClose(handle);
  OrvoMacroVdmDelete(7);
  EXPECT_EQ(OrvoMacroVdmExists(7), 0);
  OrvoMacroVdmDelete(7);
  EXPECT_EQ(panel.lines.size(), 1U) << "silent when there is none";
}

TEST_F(VdmExports, TolerateNullTexts) {
  const std::uint32_t handle = Make(7, {"a"});
  OrvoMacroVdmSingleGetText(handle, nullptr, 1);
  OrvoMacroVdmSingleAddText(handle, nullptr, 1);
  OrvoMacroVdmInsertText(handle, nullptr, 1);
  EXPECT_EQ(OrvoMacroVdmSize(handle), 2);
}

TEST_F(VdmExports, SurviveAnyCalls) {
  std::mt19937 random(7);
  const auto number = [&] {
    constexpr std::int32_t kExtremes[] = {0, -1, std::numeric_limits<std::int32_t>::min(),
                                          std::numeric_limits<std::int32_t>::max()};
    return random() % 4 == 0 ? kExtremes[random() % 4] : static_cast<std::int32_t>(random() % 6);
  };
  const auto word = [&] { return static_cast<std::uint32_t>(number()); };
  const std::string texts[] = {"", "x", std::string(4999, 'y'), std::string(5000, 'z')};
  const auto text = [&] { return random() % 9 == 0 ? nullptr : texts[random() % 4].c_str(); };
  for (int i = 0; i < 20000; ++i) {
    switch (random() % 15) {
      case 0: OrvoMacroVdmExists(word()); break;
      case 1: OrvoMacroVdmCreate(word(), number()); break;
      case 2: OrvoMacroVdmOpen(word(), number()); break;
      case 3: OrvoMacroVdmCheckOpen(word()); break;
      case 4:
        if (random() % 8 == 0) OrvoMacroVdmClose(word());
        break;
      case 5: OrvoMacroVdmDelete(word()); break;
      case 6: OrvoMacroVdmSize(word()); break;
      case 7: OrvoMacroVdmSeek(word(), number(), number()); break;
      case 8: OrvoMacroVdmInsertText(word(), text(), number()); break;
      case 9: OrvoMacroVdmRemove(word(), number()); break;
      case 10: OrvoMacroVdmSingleSeek(word(), number()); break;
      case 11: Get(word()); break;
      case 12: OrvoMacroVdmSingleAddText(word(), text(), number()); break;
      case 13: OrvoMacroVdmSingleReplaceText(word(), text(), number()); break;
      case 14: OrvoMacroVdmSingleDelete(word(), number()); break;
    }
  }
  SUCCEED() << "nothing crashed";
}

}  // namespace
}  // namespace vanzet::test
