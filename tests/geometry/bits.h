#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "geometry/kurveex.h"

/// A number that stands for every bit of a result. Two results with the same number are the same but for one
/// chance in 2^64. Padding is not read, and all that is not a number counts as one value.
namespace geometry::testing {

class Bits {
 public:
  void Put(std::uint64_t word) {
    hash_ = (std::rotl(hash_, 23) ^ word) * 0x9E3779B97F4A7C15u;
    hash_ ^= hash_ >> 29;
  }
  void Put(double number) {
    Put(std::isnan(number) ? ~std::uint64_t{0} : std::bit_cast<std::uint64_t>(number));
  }
  void Put(const Point& p) {
    Put(std::uint64_t{p.ok});
    Put(p.x);
    Put(p.y);
  }
  void Put(const Vector2d& v) {
    Put(v.dx);
    Put(v.dy);
  }
  void Put(const Span& s) {
    for (const Point& p : {s.p0, s.p1, s.pc, s.box.min, s.box.max}) Put(p);
    for (const Vector2d& v : {s.vs, s.ve}) Put(v);
    for (const double number : {s.length, s.radius, s.angle}) Put(number);
    const std::uint64_t direction = static_cast<std::uint32_t>(s.dir);
    for (const std::uint64_t word :
         {direction, std::uint64_t{s.ID}, std::uint64_t{s.NullSpan}, std::uint64_t{s.index0},
          std::uint64_t{s.index1}, std::uint64_t{s.propertiesSet}})
      Put(word);
  }
  void Put(const KurveEx& k) {
    for (const Span& span : k.spans) Put(span);
    Put(k.start);
    for (const double number : {k.perim, k.area}) Put(number);
    for (const std::uint64_t word : {std::uint64_t{k.spans.size()}, std::uint64_t{k.reversed},
                                     std::uint64_t{k.flag}, std::uint64_t{k.index0}, std::uint64_t{k.index1}})
      Put(word);
  }
  void Put(const Kurve& k) {
    for (const double number : k.e) Put(number);
    for (int i = 0; i < k.nVertices; ++i) {
      const SpanVertexBlock& block = *k.blocks[static_cast<std::size_t>(i / SPANSTORAGE)];
      const int at = i % SPANSTORAGE;
      for (const double number : {block.x[at], block.y[at], block.xc[at], block.yc[at]}) Put(number);
      const std::uint64_t type = static_cast<std::uint32_t>(block.type[at]);
      for (const std::uint64_t word : {type, std::uint64_t{block.ID[at]}, std::uint64_t{block.index[at]}})
        Put(word);
    }
    for (const std::uint64_t word :
         {std::uint64_t{k.blocks.size()}, std::uint64_t{k.started}, std::uint64_t{k.reversed}})
      Put(word);
  }
  void Put(std::wstring_view text) {
    for (const wchar_t letter : text) Put(static_cast<std::uint64_t>(letter));
  }

  std::uint64_t Value() const { return hash_; }

 private:
  std::uint64_t hash_ = 0x243F6A8885A308D3u;
};

}  // namespace geometry::testing
