#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vdm/vdm.h"

namespace vanzet::history {

/// How much the words say of a record that changed.
enum class Detail {
  kBrief,  ///< of a device or part that is another one, its name alone
  kFull,   ///< each value that differs
};

/// The changes from one content of a VDM to the next, in words; empty when nothing did. Definitions are
/// compared by the keys of their JSON form (docs/formats/definition-json.md):
///
///   main.chuck: Chuck 160 -> Chuck 210; A 80 -> 105
///
/// Content that the form does not have is counted by records: "3 records of other data". Without a content
/// the VDM does not exist. Fails when a record cannot be read.
Result<std::vector<std::string>> ChangesInWords(const vdm::Vdm* before, const vdm::Vdm* now, Detail detail);

}  // namespace vanzet::history
