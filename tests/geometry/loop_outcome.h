#pragma once

#include <cwchar>
#include <string>

#include "geometry/offset/loop_removal.h"

/// The result of the removal of loops, so that two ways of doing it can be compared to the last
/// bit.
namespace geometry::testing {

/// The complete state of a contour, as bytes.
inline std::string BytesOf(const KurveEx& k) {
  std::string bytes;
  const auto put = [&bytes](const auto&... values) {
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
  };
  put(k.perim, k.area, k.start.x, k.start.y);
  for (const Span& s : k.spans) {
    put(s.p0.x, s.p0.y, s.p1.x, s.p1.y, s.dir, s.ID, s.vs.dx, s.vs.dy, s.ve.dx, s.ve.dy, s.length, s.radius,
        s.angle, s.box.min.x, s.box.min.y, s.box.max.x, s.box.max.y);
    if (s.dir != LINEAR) put(s.pc.x, s.pc.y);
  }
  return bytes;
}

/// The result, or the exception.
inline std::string Outcome(const KurveEx& raw, const KurveEx& source, double off, Search search) {
  int code = -1;
  try {
    const KurveEx k = EliminateLoops(KurveEx(raw), source.spans, off, code, search);
    return std::to_string(code) + BytesOf(k);
  } catch (const wchar_t* text) {
    return {text, text + std::wcslen(text)};
  }
}

inline std::string CompactOutcome(const Kurve& raw, const KurveEx& source, double off, Search search) {
  int code = -1;
  const SourceSpans spans = [&]() -> const std::vector<Span>& { return source.spans; };
  const Kurve k = EliminateLoops(raw, spans, off, code, search);
  return std::to_string(code) + BytesOf(KurveEx(k));
}

}  // namespace geometry::testing
