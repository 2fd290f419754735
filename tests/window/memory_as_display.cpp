#include "test_display.h"
#include "view_qt/memory_display.h"

namespace vanzet::test {

void UseTestDisplay() {
  UseMemoryAsDisplay();
}

}  // namespace vanzet::test
