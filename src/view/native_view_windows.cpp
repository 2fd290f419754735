#include "view/native_view.h"

namespace vanzet::view {

// The console serves until a view is drawn there.
Result<std::unique_ptr<View>> NativeView() {
  return std::unique_ptr<View>();
}

}  // namespace vanzet::view
