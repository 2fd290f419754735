#pragma once

#include <vector>

#include "platform/huge_pages.h"

namespace geometry::region {

/// Reserves memory that is about to be filled, in huge pages if it is large.
template <class T>
void ReserveLarge(std::vector<T>& list, std::size_t count) {
  list.reserve(count);
  vanzet::platform::PreferHugePages(list.data(), list.capacity() * sizeof(T));
}

}  // namespace geometry::region
