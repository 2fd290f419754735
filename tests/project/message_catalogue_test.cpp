#include "project/message_catalogue.h"

#include <gtest/gtest.h>

namespace vanzet::project {
namespace {

std::string FaultOf(const std::string& text) {
  const auto messages = ReadMessageCatalogue(text, "de.txt");
  return messages ? "" : messages.fault().Message();
}

TEST(MessageCatalogue, HoldsTextsById) {
  const auto messages = ReadMessageCatalogue("# Deutsch\n704 = Hauptspindel\n\n5=OK\n", "de.txt");
  ASSERT_TRUE(messages);
  EXPECT_EQ(*messages, (MessageCatalogue{{5, "OK"}, {704, "Hauptspindel"}}));
}

TEST(MessageCatalogue, TellsTheLineOfWhatItRefuses) {
  EXPECT_EQ(FaultOf("5 = OK\nHauptspindel\n"), "de.txt:2:1: expected 'id = text'");
  EXPECT_EQ(FaultOf("[texts]\n"), "de.txt:1:1: expected 'id = text'");
  EXPECT_EQ(FaultOf("x = OK\n"), "de.txt:1:1: expected the number of a message, found 'x'");
  EXPECT_EQ(FaultOf("-5 = OK\n"), "de.txt:1:1: expected the number of a message, found '-5'");
  EXPECT_EQ(FaultOf("5 =\n"), "de.txt:1:4: the text is missing");
  EXPECT_EQ(FaultOf("5 = OK\n5 = Gut\n"), "de.txt:2:1: this message already has a text");
}

}  // namespace
}  // namespace vanzet::project
