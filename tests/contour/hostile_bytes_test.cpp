#include <random>

#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

/// Whatever comes, it is read or refused with a reason.
class HostileBytesTest : public DxfTest {
 protected:
  static void ExpectAnAnswer(const std::string& text) {
    std::istringstream asText(text);
    const auto contours = ReadText(asText, "c.txt");
    EXPECT_TRUE(contours || !contours.fault().text.empty());
    const auto content = Dxf(text);
    EXPECT_TRUE(content || !content.fault().text.empty());
  }

  std::mt19937 random{11};
};

TEST_F(HostileBytesTest, RandomBytes) {
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 300, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    ExpectAnAnswer(bytes);
  }
}

TEST_F(HostileBytesTest, WordsOfTheFormsInAnyOrder) {
  const char* const words[] = {
      "k1 e", "x1 y2", "ax3 y4 x1 y1", "tx-1 y0 x0 y0", "ek",     "rem",       "\n",
      "0",    "LINE",  "SECTION",      "ENTITIES",      "2",      "10",        "1e9",
      "90",   "42",    "LWPOLYLINE",   "POLYLINE",      "VERTEX", "SEQEND",    "70",
      "230",  "-1",    "ENDSEC",       "EOF",           "9",      "$INSUNITS", "CIRCLE"};
  for (int i = 0; i < 5000; ++i) {
    std::string text = i % 2 == 0 ? "0\nSECTION\n2\nENTITIES\n" : "k1 e x0 y0\n";
    for (std::size_t n = random() % 40; n > 0; --n)
      text += std::string(words[random() % std::size(words)]) + "\n";
    ExpectAnAnswer(text);
  }
}

TEST_F(HostileBytesTest, DrawingsWithOneByteOrLineAmiss) {
  const std::string whole = Drawing(
      "0 LWPOLYLINE|8 A|90 3|70 1|10 0|20 0|42 1|10 5|20 0|10 5|20 5|0 POLYLINE|70 0|0 VERTEX|10 1|20 1|"
      "0 VERTEX|10 2|20 3|42 -0.5|0 SEQEND|0 ARC|10 0|20 0|40 3|50 10|51 100|0 CIRCLE|10 9|20 9|40 2");
  ASSERT_EQ(Refused(whole), "read");
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    ExpectAnAnswer(whole.substr(0, cut));
    std::string changed = whole;
    changed[cut] = static_cast<char>(random());
    ExpectAnAnswer(changed);
    const std::size_t end = whole.find('\n', cut);
    ExpectAnAnswer(whole.substr(0, cut) + whole.substr(std::min(whole.size(), end + 1)));
  }
}

TEST_F(HostileBytesTest, ManyLinesOnEachOtherAreReadInAMoment) {
  std::string lines = kLine;
  for (int i = 0; i < 30000; ++i) lines += std::string("|") + kLine;
  EXPECT_EQ(Refused(Drawing(lines)), "read");
}

}  // namespace
}  // namespace vanzet::contour
