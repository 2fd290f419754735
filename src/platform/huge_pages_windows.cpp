#include "platform/huge_pages.h"

namespace vanzet::platform {

// Large pages are a privilege there, and no hint.
void PreferHugePages(void*, std::size_t) {}

}  // namespace vanzet::platform
