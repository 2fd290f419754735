#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "base/result.h"

namespace vanzet::contour {

/// The geometry library keeps units and tolerances for the process. Requires: called before any other work on
/// contours.
void UseMillimetres();

/// The library's message as a fault.
Fault LibraryFault(const wchar_t* message);

/// What `work` gives; what the library throws meanwhile becomes a fault.
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
