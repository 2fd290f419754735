#pragma once

#include <stdexcept>
#include <utility>

#include "base/result.h"

namespace vanzet::contour {

/// Sets the unit of the geometry library, which keeps units and tolerances for the process, to millimetres.
/// Requires: called before any other work on contours.
void UseMillimetres();

/// A message of the library as a fault.
Fault LibraryFault(const wchar_t* message);

/// Returns the value of `work()`, or a fault for what the library throws meanwhile.
template <class Work>
auto Guarded(Work work) -> Result<decltype(work())> {
  try {
    return work();
  } catch (const wchar_t* message) {
    return LibraryFault(message);
  } catch (const std::runtime_error& error) {
    return Fault{error.what()};
  }
}

}  // namespace vanzet::contour
