#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vanzet::test {

/// Compares a text with the golden file tests/golden/NAME. A mismatch leaves the text beside it as
/// NAME.actual; tools/refresh-golden NAME shows the difference and takes it over.
testing::AssertionResult MatchesGolden(const std::string& text, const std::string& name);

/// The lines as one text, each with its line end.
std::string Lines(const std::vector<std::string>& lines);

}  // namespace vanzet::test

#define EXPECT_GOLDEN(text, name) EXPECT_TRUE(::vanzet::test::MatchesGolden(text, name))
