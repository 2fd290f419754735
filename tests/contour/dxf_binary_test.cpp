#include <bit>

#include "base/number_text.h"
#include "base/numbers.h"
#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

/// Drawings in the binary forms, made of the same groups as the others.
class DxfBinaryTest : public DxfTest {
 protected:
  enum class Codes { kByte, kWord };

  static void Append(std::string& bytes, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  }

  static void AppendCode(std::string& bytes, int code, Codes codes) {
    if (codes == Codes::kWord) return Append(bytes, static_cast<std::uint64_t>(code), 2);
    if (code < 255) return Append(bytes, static_cast<std::uint64_t>(code), 1);
    Append(bytes, 255, 1);
    Append(bytes, static_cast<std::uint64_t>(code), 2);
  }

  static void AppendValue(std::string& bytes, int code, const std::string& value) {
    const auto isWithin = [&](int low, int high) { return code >= low && code <= high; };
    if (isWithin(10, 59) || isWithin(210, 239) || isWithin(1010, 1059)) {
      return Append(bytes, std::bit_cast<std::uint64_t>(WholeReal(value).value_or(0)), 8);
    }
    const auto number = static_cast<std::uint64_t>(static_cast<std::int64_t>(IntegerOrZero(value)));
    if (isWithin(60, 79) || isWithin(270, 289) || isWithin(370, 389)) return Append(bytes, number, 2);
    if (isWithin(90, 99) || isWithin(420, 429) || isWithin(440, 459) || code == 1071)
      return Append(bytes, number, 4);
    if (isWithin(160, 169)) return Append(bytes, number, 8);
    if (isWithin(290, 299)) return Append(bytes, number, 1);
    if (isWithin(310, 319) || code == 1004) bytes += static_cast<char>(value.size());
    bytes += value;
    if (!isWithin(310, 319) && code != 1004) bytes += '\0';
  }

  /// The binary form of a drawing's text.
  static std::string Binary(const std::string& text, Codes codes) {
    std::string bytes("AutoCAD Binary DXF\r\n\x1a\0", 22);
    std::istringstream lines(text);
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
      AppendCode(bytes, IntegerOrZero(code), codes);
      AppendValue(bytes, IntegerOrZero(code), value);
    }
    return bytes;
  }

  /// Groups of every form, before and in an entity.
  static std::string Text() {
    return Groups(
        "999 a remark|0 SECTION|2 HEADER|9 $INSUNITS|70 1|9 $FLAG|290 1|9 $SIZE|160 77|0 ENDSEC|0 SECTION|2 "
        "ENTITIES|0 LWPOLYLINE|5 1F|100 AcDbEntity|8 Outline|62 -1|420 255|440 9|370 -3|90 3|70 1|43 0.0|10 "
        "0|"
        "20 0|42 1|10 0.5|20 -0.25|10 1e-1|20 2.5|1001 APP|1004 xyz|1010 1|1040 2.5|1070 7|1071 9|310 abc|"
        "0 ENDSEC|0 EOF");
  }
};

TEST_F(DxfBinaryTest, BothFormsReadAsTheTextDoes) {
  const auto text = Dxf(Text());
  ASSERT_TRUE(text) << text.fault().Message();
  EXPECT_EQ(text->contours[0].curve.SpanCount(), 3);
  for (const Codes codes : {Codes::kByte, Codes::kWord}) {
    for (const std::string& start : {Text(), Text().substr(Text().find("0\nSECTION"))}) {
      const auto binary = Dxf(Binary(start, codes));
      ASSERT_TRUE(binary) << binary.fault().Message();
      EXPECT_EQ(TextForm(binary->contours), TextForm(text->contours));
    }
  }
}

TEST_F(DxfBinaryTest, EveryCutIsAFaultWithItsByte) {
  for (const Codes codes : {Codes::kByte, Codes::kWord}) {
    const std::string whole = Binary(Text(), codes);
    for (std::size_t size = 0; size + 6 < whole.size(); ++size)
      EXPECT_NE(Refused(whole.substr(0, size)), "read");
    EXPECT_THAT(Refused(whole.substr(0, 80)),
                testing::MatchesRegex("d.dxf: byte [0-9]+: the drawing is cut short.*"));
  }
}

TEST_F(DxfBinaryTest, FaultsOfEntitiesNameTheirByte) {
  const std::string circle = Groups("0 SECTION|2 ENTITIES|0 CIRCLE|10 0|20 0|0 ENDSEC|0 EOF");
  EXPECT_EQ(Refused(Binary(circle, Codes::kWord)), "d.dxf: byte 45: the CIRCLE has no group 40");
  EXPECT_EQ(Refused(Binary(circle, Codes::kByte)), "d.dxf: byte 42: the CIRCLE has no group 40");
  EXPECT_THAT(
      Refused(std::string("AutoCAD Binary DXF\r\n\x1a\0", 22) + std::string("\0\0SECTION\0\xFF\x7F", 12)),
      testing::HasSubstr("expected a group code, found 32767"));
}

TEST_F(DxfBinaryTest, RandomBytesAfterTheMarkAreRefused) {
  std::uint32_t state = 1;
  for (int i = 0; i < 3000; ++i) {
    std::string bytes = Binary(Text(), i % 2 == 0 ? Codes::kByte : Codes::kWord);
    for (int k = 0; k < 4; ++k) {
      state = state * 1664525 + 1013904223;
      bytes[22 + (state >> 8) % (bytes.size() - 22)] = static_cast<char>(state >> 24);
    }
    const auto content = Dxf(bytes);
    EXPECT_TRUE(content || !content.fault().text.empty());
  }
}

}  // namespace
}  // namespace vanzet::contour
