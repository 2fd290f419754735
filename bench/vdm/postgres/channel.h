#pragma once

#include <cstdint>
#include <string>

#include "vdm/postgres/statement.h"

/// The channel of a project on a server, by which programs hear of each other: docs/formats/store.md.
namespace vanzet::vdm {

std::string ChannelOf(const std::string& project);

/// The notification that comes with each taken and each released lock.
inline constexpr const char* kLocksNote = "locks";

/// Notifies of a commit, with its generation.
PostgresStatement NoteOfCommit(const std::string& project, std::int64_t generation);

/// Notifies of a lock that was taken or released.
PostgresStatement NoteOfLocks(const std::string& project);

}  // namespace vanzet::vdm
