#pragma once

#include <string>

namespace vanzet::vdm {

/// Who makes a commit; "?" for what the system does not say.
struct CommitOrigin {
  std::string user, host, program;
};

CommitOrigin OriginOfProcess();

/// The time now, in UTC: "2026-11-22T09:00:00Z".
std::string TimeText();

}  // namespace vanzet::vdm
