#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "geometry/bits.h"
#include "geometry/offset.h"
#include "geometry/shapes.h"
#include "support/golden.h"

/// Every bit of the offsets of 10,000 contours, as they were recorded before anything was done for speed: no
/// field of any span may change. A line stands for 50 contours. The suite goes through the first thousand;
/// VANZET_ALL_OFFSETS in the environment has it go through the others, too.
namespace geometry {
namespace {

using testing::Bits;
using testing::DrawAny;
using testing::Random;
using testing::UnitsGuard;

constexpr int kContoursOfALine = 50;

/// The outcome of all contours of a line.
struct Line {
  Bits bits;
  int codes[4] = {};
  int thrown = 0;
};

/// Notes what `action` returns and made, or throws.
template <class Made, class Action>
void Note(Line& line, Action&& action) {
  Made made;
  try {
    const int code = action(made);
    line.bits.Put(static_cast<std::uint64_t>(code));
    ++line.codes[code];
    line.bits.Put(made);
  } catch (const wchar_t* text) {
    line.bits.Put(std::wstring_view(text));
    ++line.thrown;
  }
}

/// Seldom next to nothing or deeper than any detail, mostly between.
double DrawDistance(Random& random) {
  const double sign = random.Below(2) == 0 ? 1 : -1;
  switch (random.Below(8)) {
    case 0: return sign * random.Between(0, 0.05);
    case 1: return sign * random.Between(4, 30);
    default: return sign * random.Between(0.05, 4);
  }
}

void NoteKurveEx(Line& line, const KurveEx& source, double offset, Random& random) {
  const int direction = random.Below(4) == 0 ? -1 : 1;
  const double rollAngle = random.Between(0, 400);
  for (const std::uint32_t flags : {0u, 1u, UNMARKED | 1u, ROLL_AROUND | 1u}) {
    for (const bool keepLoops : {false, true}) {
      Note<KurveEx>(line, [&](KurveEx& made) {
        return source.Offset(made, offset, direction, flags, rollAngle, keepLoops);
      });
    }
  }
  Note<KurveEx>(line, [&](KurveEx& made) {
    KurveEx raw;
    source.Offset(raw, offset, direction, 0, 0);
    int code = 0;
    made = EliminateLoops(raw, source, offset, code);
    return code;
  });
}

void DrawMatrix(Kurve& k, Random& random) {
  if (random.Below(2) == 0) return;
  k.Rotate(random.Between(0, 6), 3);
  k.Translate(random.Between(-9, 9), random.Between(-9, 9));
  const double scale = random.Between(0.3, 3);
  if (random.Below(2) == 0) k.Scale(random.Below(2) == 0 ? scale : -scale, scale, scale);
  k.IsMirrored();
}

void NoteKurve(Line& line, const KurveEx& source, double offset, Random& random) {
  Kurve compact(source);
  DrawMatrix(compact, random);
  const int direction = random.Below(4) == 0 ? -1 : 1;
  for (const int method : {0, 1}) {
    Note<Kurve>(line, [&](Kurve& made) { return compact.OffsetMethod1(made, offset, direction, method); });
  }
  Note<Kurve>(line, [&](Kurve& made) {
    return compact.OffsetMethod2(made, offset, direction, random.Below(2) == 0);
  });
  Note<Kurve>(line, [&](Kurve& made) {
    Kurve raw;
    compact.OffsetMethod1(raw, offset, direction, 0);
    int code = 0;
    made = EliminateLoops(raw, compact, offset, code);
    return code;
  });
}

void NoteContour(Line& line, std::uint32_t seed) {
  Random random(seed);
  const UnitsGuard millimetres(0);
  // Of the few contours that cannot be drawn, or not in another unit, the text counts.
  try {
    KurveEx source = DrawAny(random);
    SetUnits(random.Below(3));
    source.Scale(mm(1));
    source.area *= mm(1);  // which `Scale` multiplies only once
    if (random.Below(4) == 0) source.Reverse(true);
    for (std::size_t i = 0; i < source.spans.size(); i += 7) source.spans[i].index0 = i + 1;
    const double offset = DrawDistance(random) * mm(1);
    NoteKurveEx(line, source, offset, random);
    NoteKurve(line, source, offset, random);
  } catch (const wchar_t* text) {
    line.bits.Put(std::wstring_view(text));
  }
}

std::string TextOf(int first, const Line& line) {
  char text[120];
  std::snprintf(text, sizeof text, "from %5d: %016llx, codes %d %d %d %d, thrown %d\n", first,
                static_cast<unsigned long long>(line.bits.Value()), line.codes[0], line.codes[1],
                line.codes[2], line.codes[3], line.thrown);
  return text;
}

std::string BitsOfContours(int first, int end) {
  std::string text;
  for (; first < end; first += kContoursOfALine) {
    Line line;
    for (int i = first; i < first + kContoursOfALine; ++i) NoteContour(line, static_cast<std::uint32_t>(i));
    text += TextOf(first, line);
  }
  return text;
}

/// The last bits of angles are those of the C library, and another one rounds some of them otherwise.
std::uint64_t BitsOfTheCLibrary() {
  Bits bits;
  Random random(1);
  for (int i = 0; i < 100000; ++i) {
    const double x = random.Between(-1, 1);
    for (const double y : {std::acos(x), std::sin(4 * x), std::cos(4 * x), std::atan2(x, 0.3), std::tan(x)})
      bits.Put(y);
  }
  return bits.Value();
}

class OffsetBits : public ::testing::Test {
 protected:
  void SetUp() override {
    constexpr std::uint64_t kRecordedWith = 0x8c1c98fe361d689f;
    if (BitsOfTheCLibrary() != kRecordedWith)
      GTEST_SKIP() << "recorded with a C library of other roundings: " << std::hex << BitsOfTheCLibrary();
  }
};

TEST_F(OffsetBits, StayAsTheyWereRecorded) {
  EXPECT_GOLDEN(BitsOfContours(0, 1000), "geometry/offset_bits.txt");
  if (std::getenv("VANZET_ALL_OFFSETS") == nullptr) return;
  EXPECT_GOLDEN(BitsOfContours(1000, 10000), "geometry/offset_bits_all.txt");
}

}  // namespace
}  // namespace geometry
