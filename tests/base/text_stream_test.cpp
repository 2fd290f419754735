#include "base/text_stream.h"

#include <gtest/gtest.h>

#include <new>

namespace vanzet {
namespace {

/// Runs out of memory at the first byte.
class Exhausted : public std::streambuf {
  int_type underflow() override { throw std::bad_alloc(); }
};

TEST(TextStream, GivesTheLinesOfAText) {
  TextStream stream("a\nb");
  std::string line;
  ASSERT_TRUE(std::getline(stream, line));
  EXPECT_EQ(line, "a");
  ASSERT_TRUE(std::getline(stream, line));
  EXPECT_EQ(line, "b");
  EXPECT_FALSE(std::getline(stream, line));
}

TEST(TextStream, DoesNotTakeALackOfMemoryForItsEnd) {
  Exhausted exhausted;
  TextStream stream("a");
  static_cast<std::istream&>(stream).std::ios::rdbuf(&exhausted);
  std::string line;
  EXPECT_THROW(std::getline(stream, line), std::bad_alloc);
}

}  // namespace
}  // namespace vanzet
