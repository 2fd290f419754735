#pragma once

#include <filesystem>
#include <vector>

#include "vdm/lock_holder.h"

namespace vanzet::vdm {

/// The holders of locks on a project's lock file among the other processes of this machine, by number; the
/// project as a whole comes last. Where a holder cannot be found out, it is "?@machine".
/// Source   proc(5): the line "lock:" of /proc/PID/fdinfo/DESCRIPTOR
std::vector<LockHolder> HoldersOf(const std::filesystem::path& lockFile);

}  // namespace vanzet::vdm
