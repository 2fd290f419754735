#include "host/messages.h"
#include "host/message_ids.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "support/fake_host.h"

namespace vanzet::host {
namespace {

using test::FakeHost;
using testing::ElementsAre;

TEST(TextMessage, IsTheDefaultWhereTheHostHasNone) {
  FakeHost host;
  std::string out = "before";
  EXPECT_STREQ(TextMessage(704, "*Mainspindle", out), "*Mainspindle");
  EXPECT_EQ(out, "*Mainspindle");
  EXPECT_THAT(host.calls, ElementsAre("OrvoStrMessage(5, 704, '')")) << "asked without a default";
}

TEST(TextMessage, IsTheTranslationWhereTheHostHasOne) {
  FakeHost host;
  host.translations[message::kMainSpindle] = "Hauptspindel";
  std::string out;
  EXPECT_STREQ(TextMessage(704, "*Mainspindle", out), "Hauptspindel");
  EXPECT_EQ(out, "Hauptspindel");
}

TEST(Messages, AreSortedByIdAndNoRowStandsTwice) {
  EXPECT_TRUE(std::ranges::is_sorted(Messages(), {}, &Message::id));
  std::set<std::pair<std::int32_t, std::string_view>> rows;
  for (const Message& message : Messages()) {
    EXPECT_TRUE(rows.emplace(message.id, message.text).second) << message.text;
    EXPECT_FALSE(message.text.empty());
  }
}

TEST(Messages, HaveEveryId) {
  std::set<std::int32_t> ids;
  for (const Message& message : Messages()) ids.insert(message.id);
  const std::set<std::int32_t> expected = {
      5,    8,    26,   406,  699,  700,  701,  702,  703,  704,  705,  706,  707,  708,  709,  710,  711,
      712,  713,  714,  715,  717,  718,  719,  720,  721,  722,  723,  724,  725,  726,  727,  728,  729,
      731,  732,  733,  734,  735,  739,  741,  742,  743,  744,  745,  746,  747,  748,  749,  1160, 1162,
      1163, 1164, 1165, 1166, 1167, 1168, 1169, 1170, 1171, 1172, 1173, 1174, 1175, 1176, 1177, 1178};
  EXPECT_EQ(ids, expected);
}

TEST(Messages, HaveEveryDefaultOfAnIdThatHasSeveral) {
  std::vector<std::string_view> several;
  for (const Message& message : Messages()) {
    const auto same = std::ranges::count(Messages(), message.id, &Message::id);
    if (same > 1) several.push_back(message.text);
  }
  EXPECT_THAT(several,
              ElementsAre("Mainspindle", "*Mainspindle", "Main Spindle", "Subspindle", "*Subspindle",
                          "Sub Spindle", "Billet cylindrical", "Billet cylindric Sub", "Billet from Geometry",
                          "Billet from geometry", "Finishpart from Solid", "Finishpart from solid"));
}

TEST(Messages, KeepTheStarsOfTheTextsThatAreReplaced) {
  for (const std::int32_t id : {1168, 1169, 1175, 1176, 1177}) EXPECT_EQ(DefaultText(id).front(), '*') << id;
}

TEST(DefaultText, IsThePlainOneOfSeveral) {
  EXPECT_EQ(DefaultText(704), "Mainspindle");
  EXPECT_EQ(DefaultText(1173), "Finishpart from Solid");
  EXPECT_EQ(DefaultText(5), "OK");
  EXPECT_EQ(DefaultText(1178), "Count of Jaws");
}

}  // namespace
}  // namespace vanzet::host
