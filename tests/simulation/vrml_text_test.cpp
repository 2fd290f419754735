#include "simulation/device_vrml.h"

#include <gmock/gmock.h>

#include "support/golden.h"
#include "support/temporary_folder.h"

namespace vanzet::simulation {
namespace {

using test::TemporaryFolder;
using test::WriteBytes;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class Facets : public testing::Test {
 protected:
  std::vector<std::string> Of(const std::string& text) {
    WriteBytes(folder / "a.wrl", text);
    platform::LineReader file((folder / "a.wrl").string());
    std::vector<std::string> lines;
    GiveFacets(file, [&lines](const std::string& line) { lines.push_back(line); });
    return lines;
  }

  TemporaryFolder folder;
};

const std::string kIndent(12, ' ');

TEST_F(Facets, AreCopiedFromTheirFirstLineToTheBracketBehindTheIndices) {
  EXPECT_THAT(Of("head\ncoord Coordinate { point [\n1 2 3\n] }\ncoordIndex [\n0 1 2 -1\n]\nrest\n"),
              ElementsAre(kIndent + "coord Coordinate { point [\n", kIndent + "1 2 3\n", kIndent + "] }\n",
                          kIndent + "coordIndex [\n", kIndent + "0 1 2 -1\n", kIndent + "]\n"));
}

TEST_F(Facets, BeginWithExactlyTwelveBlanks) {
  EXPECT_THAT(Of(" \t  coord Coordinate\n\v\f coordIndex  \n]"),
              ElementsAre(kIndent + "coord Coordinate\n", kIndent + "coordIndex  \n", kIndent + "]\n"));
}

TEST_F(Facets, DoNotEndAtABracketOnTheLineOfTheWordCoordIndex) {
  EXPECT_THAT(Of("coord Coordinate [] coordIndex []\ncoordIndex [0 1 2 -1]\n3 4 5 -1\n6 7 8 -1 ] }\n]\n"),
              ElementsAre(StartsWith(kIndent + "coord"), kIndent + "coordIndex [0 1 2 -1]\n",
                          kIndent + "3 4 5 -1\n", kIndent + "6 7 8 -1 ] }\n"));
}

TEST_F(Facets, EndWithAFileThatIsCutShort) {
  EXPECT_THAT(Of("coord Coordinate {\n1 2 3\n"),
              ElementsAre(kIndent + "coord Coordinate {\n", kIndent + "1 2 3\n"));
  EXPECT_THAT(Of("coord Coordinate {\ncoordIndex\n0 1"),
              ElementsAre(kIndent + "coord Coordinate {\n", kIndent + "coordIndex\n", kIndent + "0 1\n"));
}

TEST_F(Facets, AreNoneWithoutTheirFirstLine) {
  EXPECT_THAT(Of(""), IsEmpty());
  EXPECT_THAT(Of("point [\ncoordIndex [\n]\n"), IsEmpty());
}

TEST_F(Facets, ReadBothLineEnds) {
  EXPECT_THAT(Of("coord Coordinate\r\n1 2 3\r\ncoordIndex\r\n]\r\n"),
              ElementsAre(kIndent + "coord Coordinate\n", kIndent + "1 2 3\n", kIndent + "coordIndex\n",
                          kIndent + "]\n"));
}

TEST_F(Facets, AreBrokenAtWhiteSpaceWhereALineIsTooLongForAnItem) {
  std::string points;
  for (int i = 0; i < 2000; ++i) points += std::to_string(i) + " 0 0, ";
  const std::vector<std::string> lines = Of("coord Coordinate [\n" + points + "\ncoordIndex\n]\n");
  std::string joined;
  for (const std::string& line : lines) {
    EXPECT_LE(line.size(), 4999U);
    EXPECT_TRUE(line.starts_with(kIndent) && line.ends_with("\n"));
    joined += line.substr(12, line.size() - 13) + " ";
  }
  EXPECT_EQ(joined, "coord Coordinate [ " + points + " coordIndex ] ");
}

TEST_F(Facets, KeepBlankLines) {
  EXPECT_THAT(
      Of("coord Coordinate\n\ncoordIndex\n]"),
      ElementsAre(kIndent + "coord Coordinate\n", kIndent + "\n", kIndent + "coordIndex\n", kIndent + "]\n"));
}

std::vector<std::string> Tail(double offset) {
  std::vector<std::string> lines;
  GiveVrmlTail(offset, [&lines](const std::string& line) { lines.push_back(line); });
  return lines;
}

TEST(VrmlTail, HoldsTheMarkersBehindTheDevice) {
  std::string text;
  for (const std::string& line : Tail(30)) text += line;
  EXPECT_GOLDEN(text, "simulation/tail_30.wrl");
}

TEST(VrmlTail, PutsTheFirstMarkerAtTheOffset) {
  using testing::IsSupersetOf;
  EXPECT_THAT(Tail(30), IsSupersetOf({"              -30.000000 0.000000 0.000000,\n",
                                      "              -45.000000 0.000000 0.000000\n"}));
  EXPECT_THAT(Tail(0), IsSupersetOf({"              -0.000000 0.000000 5.000000,\n",
                                     "              -15.000000 0.000000 0.000000\n"}));
  EXPECT_THAT(Tail(-20), IsSupersetOf({"              20.000000 10.000000 0.000000,\n",
                                       "              5.000000 0.000000 0.000000\n"}));
}

TEST(VrmlHead, IsThis) {
  std::string text;
  GiveVrmlHead([&text](const std::string& line) { text += line; });
  EXPECT_GOLDEN(text, "simulation/head.wrl");
}

}  // namespace
}  // namespace vanzet::simulation
