#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

#include "platform/huge_pages.h"

namespace vanzet::platform {

void PreferHugePages([[maybe_unused]] void* memory, std::size_t bytes) {
  if (bytes < kHugePagesFrom) return;
#ifdef MADV_HUGEPAGE
  // The pages that are wholly inside.
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) / page * page;
  const auto end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) / page * page;
  static_cast<void>(madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE));
#endif
}

}  // namespace vanzet::platform
