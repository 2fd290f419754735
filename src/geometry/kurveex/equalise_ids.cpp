#include <limits>

#include "geometry/equalise.h"

namespace geometry {
namespace {

/// The spans of one contour in the order of storage, and its result.
class IdStrand {
 public:
  explicit IdStrand(const KurveEx& source) : source_(source) {
    if (source.start.ok) out_.Start(source.start);
  }

  bool AtEnd() const { return next_ >= source_.spans.size(); }
  bool IsUnmarked() const { return !AtEnd() && Head().ID == UNMARKED; }

  /// The number of the next span, without its mark; -1 at the end.
  std::int32_t ID() const { return AtEnd() ? -1 : static_cast<std::int32_t>(Head().ID & ~ROLL_AROUND); }
  bool IsRollAround() const { return !AtEnd() && (Head().ID & ROLL_AROUND) != 0; }

  void Take() {
    out_.Add(Head(), true);
    ++next_;
  }
  void TakeNull() { out_.AddNullSpan(); }

  KurveEx Result() {
    out_.Reverse(source_.reversed);
    return out_;
  }

 private:
  const Span& Head() const { return source_.spans[next_]; }

  const KurveEx& source_;
  KurveEx out_;
  std::size_t next_ = 0;
};

/// The smallest number from `running` on that one of them waits for; below 0 when none does. IDs that fall
/// along a contour are waited for in vain.
std::int32_t NextNumber(const IdStrand& a, const IdStrand& b, std::int32_t running) {
  std::int32_t next = std::numeric_limits<std::int32_t>::max();
  bool found = false;
  for (const std::int32_t ID : {a.ID(), b.ID()}) {
    if (ID < running || ID > next) continue;
    next = ID;
    found = true;
  }
  return found ? next : -1;
}

void TakePair(IdStrand& a, IdStrand& b, std::int32_t number) {
  const bool isOfA = a.ID() == number;
  const bool isOfBoth = isOfA && b.ID() == number && a.IsRollAround() == b.IsRollAround();
  if (isOfBoth) {
    a.Take();
    b.Take();
  } else if (isOfA) {
    a.Take();
    b.TakeNull();
  } else {
    a.TakeNull();
    b.Take();
  }
}

}  // namespace

bool EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB) {
  if (NearZero(a.perim, TIGHT_TOLERANCE) || NearZero(b.perim, TIGHT_TOLERANCE)) return false;
  IdStrand strandA(a);
  IdStrand strandB(b);
  std::int32_t number = 0;
  bool asTheyAre = false;
  while (number >= 0 && !(strandA.AtEnd() && strandB.AtEnd())) {
    asTheyAre = strandA.IsUnmarked() || strandB.IsUnmarked();
    if (asTheyAre) break;
    number = NextNumber(strandA, strandB, number);
    if (number >= 0) TakePair(strandA, strandB, number);
  }
  const bool paired = asTheyAre ? a.SpanCount() == b.SpanCount() : number >= 0;
  const KurveEx resultA = !paired ? KurveEx() : asTheyAre ? a : strandA.Result();
  outB = !paired ? KurveEx() : asTheyAre ? b : strandB.Result();
  outA = resultA;
  return paired;
}

std::unique_ptr<KurveEx> EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA) {
  auto outB = std::make_unique<KurveEx>();
  if (!EqualiseByID(a, b, outA, *outB)) return nullptr;
  return outB;
}

}  // namespace geometry
