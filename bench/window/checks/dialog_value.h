#pragma once

#include <cstdint>
#include <span>

#include "scene/equipment.h"
#include "window/checks/reported_finding.h"

namespace vanzet::window {

/// The value that a finding is about, in the dialog.
struct DialogValue {
  std::int32_t node = 0;  ///< of its page; 0 where no page has it
  /// The controls that hold it, one on each page of the part; of several on a page the first one is meant.
  /// Empty where the finding is not about a single value.
  std::span<const std::int32_t> fields = {};
};

/// The value by which the finding would vanish, or else the one that the rule is about.
DialogValue DialogValueOf(const ReportedFinding& finding, const scene::Equipment& equipment);

}  // namespace vanzet::window
