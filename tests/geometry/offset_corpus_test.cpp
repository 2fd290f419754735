#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "geometry/contour_text.h"
#include "geometry/loop_outcome.h"
#include "geometry/offset.h"
#include "geometry/support.h"
#include "support/places.h"

/// The hard cases of fuzz/corpus/offset, which also seed the fuzzer.
namespace geometry {
namespace {

using testing::CompactOf;
using testing::ContourOf;
using testing::Expectation;
using testing::ExpectationsOf;
using testing::Outcome;
using testing::ThrownText;
using testing::UnitsGuard;

std::vector<std::filesystem::path> Files() {
  const std::filesystem::directory_iterator folder(VANZET_SOURCE_DIR "/fuzz/corpus/offset");
  std::vector<std::filesystem::path> files;
  for (const auto& entry : folder) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

std::string ContentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string NameOf(const ::testing::TestParamInfo<std::filesystem::path>& info) {
  return info.param.stem().string();
}

class OffsetCorpus : public ::testing::TestWithParam<std::filesystem::path> {
 protected:
  UnitsGuard millimetres_{0};
  const std::string text_ = ContentOf(GetParam());
};

TEST_P(OffsetCorpus, ComesOutAsItSays) {
  ASSERT_FALSE(ExpectationsOf(text_).empty());
  for (const Expectation& expected : ExpectationsOf(text_)) {
    KurveEx made;
    const int code = ContourOf(text_).Offset(made, expected.offset, 1, 1, 0);
    EXPECT_TRUE(code == 0 || code == 2 || code == 3);
    EXPECT_EQ(expected.code < 0 ? -1 : code, expected.code) << expected.offset;
    EXPECT_EQ(expected.spans < 0 ? -1 : made.SpanCount(), expected.spans) << expected.offset;
  }
}

TEST_P(OffsetCorpus, HasFiniteSpansThatFollowEachOther) {
  for (const Expectation& expected : ExpectationsOf(text_)) {
    KurveEx made;
    ContourOf(text_).Offset(made, expected.offset, 1, 1, 0);
    EXPECT_TRUE(std::isfinite(made.perim) && std::isfinite(made.area));
    for (std::size_t i = 1; i < made.spans.size(); ++i) EXPECT_EQ(made.spans[i].p0, made.spans[i - 1].p1);
  }
}

TEST_P(OffsetCorpus, IsTheSameWithAndWithoutAnIndex) {
  for (const Expectation& expected : ExpectationsOf(text_)) {
    const KurveEx k = ContourOf(text_);
    KurveEx raw;
    k.Offset(raw, expected.offset, 1, 0, 0);
    EXPECT_EQ(Outcome(raw, k, expected.offset, Search::Indexed),
              Outcome(raw, k, expected.offset, Search::Plain));
  }
}

TEST_P(OffsetCorpus, CompactContoursHaveACodeToo) {
  for (const Expectation& expected : ExpectationsOf(text_)) {
    Kurve made;
    const int code = CompactOf(text_).OffsetMethod1(made, expected.offset, 1, 1);
    EXPECT_TRUE(code == 0 || code == 2 || code == 3);
    EXPECT_EQ(CompactOf(text_).OffsetMethod2(made, expected.offset, 1, false), 1);
  }
}

INSTANTIATE_TEST_SUITE_P(All, OffsetCorpus, ::testing::ValuesIn(Files()), NameOf);

}  // namespace
}  // namespace geometry
