#include <cstdlib>

#include "fuzz/fuzz.h"
#include "geometry/contour_text.h"
#include "geometry/loop_outcome.h"
#include "geometry/offset.h"

namespace {

using namespace geometry;
using namespace geometry::testing;

/// Longer ones are the business of the benchmarks.
constexpr std::size_t kLongest = 4000;

/// All that is offered for one contour and one distance. What the search for crossings has to do with an
/// index and without it must not differ.
void Offset(const KurveEx& k, const Kurve& compact, double offset) {
  for (const int direction : {1, -1}) {
    KurveEx made;
    Kurve madeCompact;
    k.Offset(made, offset, direction, 0x10000001, 30);
    compact.OffsetMethod1(madeCompact, offset, direction, 1);
    compact.OffsetMethod2(madeCompact, offset, direction, direction == 1);
    k.Offset(made, offset, direction, 0, 0);
    if (Outcome(made, k, offset, Search::Indexed) != Outcome(made, k, offset, Search::Plain)) std::abort();
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kLongest) return 0;
  const std::string text = vanzet::fuzz::TextOf(data, size);
  SetUnits(0);
  for (const double offset : DistancesOf(text)) {
    try {
      Offset(ContourOf(text), CompactOf(text), offset);
    } catch (const wchar_t*) {
      // Arcs that are none are refused.
    }
  }
  return 0;
}
