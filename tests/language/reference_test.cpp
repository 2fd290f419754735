#include <fstream>

#include "language_fixture.h"

#include "support/places.h"

/// The page that people read has blocks of lines; they run as they stand.
namespace vanzet::language {
namespace {

using Block = std::vector<std::string>;

std::vector<Block> BlocksOfThePage() {
  std::ifstream page(VANZET_SOURCE_DIR "/docs/macro-language.md");
  std::vector<Block> blocks;
  bool isInside = false;
  for (std::string line; std::getline(page, line);) {
    if (isInside && line != "```") blocks.back().push_back(line);
    if (line.starts_with("```")) isInside = line == "```macro";
    if (line == "```macro") blocks.emplace_back();
  }
  return blocks;
}

TEST_F(LanguageTest, TheBlocksOfTheReferencePageRunUnchanged) {
  const std::vector<Block> blocks = BlocksOfThePage();
  EXPECT_GE(blocks.size(), 10U);
  for (const Block& block : blocks) {
    ASSERT_FALSE(block.empty());
    board = drawing::Board();
    DoAll(block);
  }
}

TEST_F(LanguageTest, TheExamplesOfDrawingsRun) {
  for (const char* name : {"chuck", "collet", "billet", "marks"}) {
    std::ifstream lines(VANZET_SOURCE_DIR "/examples/drawings/" + std::string(name) + ".txt");
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) DoAll({line});
    EXPECT_GT(count, 20) << name;
  }
  EXPECT_EQ(board.drawing().figures.size(), 5U);
}

}  // namespace
}  // namespace vanzet::language
