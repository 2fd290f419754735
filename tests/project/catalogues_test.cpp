#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "host/messages.h"
#include "project/message_catalogue.h"
#include "project/text_file.h"
#include "support/places.h"

namespace vanzet::project {
namespace {

/// What is put into a text while the program runs, in its order.
std::string Places(const std::string& text) {
  std::string places;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '#') places += '#';
    if (text[i] == '%') places += text.substr(i, 2);
  }
  return places;
}

class Catalogue : public testing::TestWithParam<const char*> {
 protected:
  MessageCatalogue Read() const {
    const std::filesystem::path file =
        std::string(VANZET_SOURCE_DIR "/share/messages/") + GetParam() + ".txt";
    const auto text = ReadTextFile(file, file.string());
    EXPECT_TRUE(text);
    auto messages = ReadMessageCatalogue(*text, file.string());
    EXPECT_TRUE(messages) << messages.fault().Message();
    return *messages;
  }
};

TEST_P(Catalogue, HasATextForEveryMessageAndNoOther) {
  std::set<std::int32_t> expected;
  for (const host::Message& message : host::Messages()) expected.insert(message.id);
  std::set<std::int32_t> found;
  for (const auto& [id, text] : Read()) found.insert(id);
  EXPECT_EQ(found, expected);
}

TEST_P(Catalogue, KeepsThePlacesThatAreFilledIn) {
  for (const auto& [id, text] : Read()) {
    EXPECT_EQ(Places(text), Places(std::string(host::DefaultText(id)))) << id;
  }
}

TEST_P(Catalogue, ShowsNoStar) {
  for (const auto& [id, text] : Read()) EXPECT_NE(text.front(), '*') << id;
}

INSTANTIATE_TEST_SUITE_P(Languages, Catalogue, testing::Values("en", "de"),
                         [](const auto& language) { return std::string(language.param); });

TEST(EnglishCatalogue, HasTheDefaultsWithoutTheirStars) {
  const std::filesystem::path file = VANZET_SOURCE_DIR "/share/messages/en.txt";
  const auto messages = ReadMessageCatalogue(*ReadTextFile(file, "en.txt"), "en.txt");
  for (const auto& [id, text] : *messages) {
    std::string_view expected = host::DefaultText(id);
    if (expected.starts_with('*')) expected.remove_prefix(1);
    EXPECT_EQ(text, expected) << id;
  }
}

}  // namespace
}  // namespace vanzet::project
