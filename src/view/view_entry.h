#pragma once

#include <cstdint>

#include "view/view.h"

/// What the module and a view in a library of its own agree upon. Both are built together from the headers of
/// src/view; the number tells apart those that were not.
namespace vanzet::view {

/// Goes up with every change of what these headers promise.
inline constexpr std::int32_t kViewVersion = 1;

/// Either a view, which belongs to the caller and ends with `delete`, or why there is none.
struct ViewAnswer {
  View* view;
  const char* reason;  ///< null with a view; lives until the next call
};

/// The one function that such a library exports, in the name space of C. It never throws and never ends the
/// process.
using ViewEntry = ViewAnswer (*)(std::int32_t version);
inline constexpr const char* kViewEntryName = "vanzetQtView";

}  // namespace vanzet::view
