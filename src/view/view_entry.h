#pragma once

#include <cstdint>

#include "view/view.h"

/// The contract between the module and a view in a library of its own. Both are built together from the
/// headers of src/view; the version detects those that were not.
namespace vanzet::view {

/// Increases with every change of what these headers promise.
inline constexpr std::int32_t kViewVersion = 1;

/// Either a view, which the caller owns and deletes, or the reason for its absence.
struct ViewAnswer {
  View* view;
  const char* reason;  ///< null with a view; lives until the next call
};

/// The one function that such a library exports, in the name space of C. It never throws and never ends the
/// process.
using ViewEntry = ViewAnswer (*)(std::int32_t version);
inline constexpr const char* kViewEntryName = "vanzetQtView";

}  // namespace vanzet::view
