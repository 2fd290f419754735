#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <utility>
#include <vector>

namespace vanzet::vdm {

/// A list that keeps its free places together at the position of the last change: inserting elements one
/// after the other at any position takes amortised constant time each, and so does removing them.
template <class T>
class GapBuffer {
 public:
  GapBuffer() = default;
  explicit GapBuffer(std::vector<T> elements)
      : places_(std::move(elements)), gapBegin_(places_.size()), gapEnd_(places_.size()) {}

  std::size_t Size() const { return places_.size() - (gapEnd_ - gapBegin_); }

  /// Requires: `at` is below the size.
  T& operator[](std::size_t at) {
    assert(at < Size() && "an index after the last element");
    return places_[at < gapBegin_ ? at : at + (gapEnd_ - gapBegin_)];
  }
  const T& operator[](std::size_t at) const { return const_cast<GapBuffer&>(*this)[at]; }

  /// Inserts `element` before the one at `at`. Requires: `at` is at most the size.
  void Insert(std::size_t at, T element) {
    assert(at <= Size() && "an element can be inserted after the last one at most");
    if (gapBegin_ == gapEnd_) OpenGap();
    MoveGap(at);
    places_[gapBegin_++] = std::move(element);
  }

  /// Removes `count` elements from `at` on. Requires: that many exist.
  void Remove(std::size_t at, std::size_t count) {
    assert(at <= Size() && count <= Size() - at && "more elements to remove than exist");
    MoveGap(at);
    // The memory of the elements is released now, not when their places are used again.
    for (const std::size_t end = gapEnd_ + count; gapEnd_ < end; ++gapEnd_) places_[gapEnd_] = T{};
  }

 private:
  using Difference = typename std::vector<T>::difference_type;

  auto Place(std::size_t place) { return places_.begin() + static_cast<Difference>(place); }

  void MoveGap(std::size_t at) {
    if (gapBegin_ == gapEnd_) {
      gapBegin_ = gapEnd_ = at;
    } else if (at < gapBegin_) {
      std::move_backward(Place(at), Place(gapBegin_), Place(gapEnd_));
      gapEnd_ -= gapBegin_ - at;
      gapBegin_ = at;
    } else {
      std::move(Place(gapEnd_), Place(gapEnd_ + (at - gapBegin_)), Place(gapBegin_));
      gapEnd_ += at - gapBegin_;
      gapBegin_ = at;
    }
  }

  /// Doubles the places; the new ones are at the end. Changes nothing where memory runs out.
  void OpenGap() {
    const std::size_t size = places_.size();
    places_.resize(std::max<std::size_t>(4, 2 * size));
    gapBegin_ = size;
    gapEnd_ = places_.size();
  }

  std::vector<T> places_;
  std::size_t gapBegin_ = 0;  ///< the first free place
  std::size_t gapEnd_ = 0;    ///< one past the last free place
};

}  // namespace vanzet::vdm
