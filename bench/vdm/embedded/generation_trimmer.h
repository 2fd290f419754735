#pragma once

#include <cstdint>

#include "vdm/embedded/connection.h"

namespace vanzet::vdm {

/// Removes the generations that need not be kept: of each VDM all but the last `keep`, at least one. So that
/// it costs little with each commit, it does nothing but in every so many generations, an eighth of `keep`;
/// until then up to that many more stay.
/// Requires: a transaction for writing, and the current schema; `generation` is the last one.
Result<void> TrimGenerations(SqliteConnection& connection, std::int64_t generation, std::int64_t keep);

}  // namespace vanzet::vdm
