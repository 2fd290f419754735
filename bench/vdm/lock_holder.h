#pragma once

#include <optional>
#include <string>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Who holds a lock of a project.
struct LockHolder {
  std::optional<Number> vdm;  ///< nothing: the project as a whole
  std::string who;            ///< "jo@shop-3", or the name of another program's connection
  std::string since = {};     ///< the beginning of its work, "2026-11-22T09:00:00Z"; empty: not known

  bool operator==(const LockHolder&) const = default;
};

}  // namespace vanzet::vdm
