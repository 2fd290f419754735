#include "contour/sound.h"

#include "contour/builder.h"

namespace vanzet::contour {

Result<Contour> Sound(int number, const geometry::KurveEx& curve) {
  Contour sound{number, {}};
  geometry::Span span;
  for (int i = 1; curve.Get(i, span); ++i) {
    for (const geometry::Point& point : {span.p0, span.p1}) {
      if (const auto checked = CheckPoint(point); !checked) return checked.fault();
    }
    sound.curve.Add(span, false);
  }
  if (sound.curve.spans.empty()) return Fault{"nothing is left of contour " + std::to_string(number)};
  return sound;
}

std::string Named(const Contour& contour) {
  return "contour " + std::to_string(contour.number);
}

}  // namespace vanzet::contour
