#pragma once

#include <memory>
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

/// A content of a VDM in the form that the words compare, so that a content between two others is read once.
/// Without a content the VDM does not exist.
class Reading {
 public:
  /// That of a VDM that does not exist.
  Reading() = default;

  /// Fails when a record cannot be read. Requires: the content can be read as long as this is used.
  static Result<Reading> Of(std::optional<vdm::Vdm> content);

 private:
  friend Result<std::vector<std::string>> ChangesInWords(const Reading&, const Reading&, Detail);

  struct Form;
  std::optional<vdm::Vdm> content_;
  std::shared_ptr<const Form> form_;  ///< null: no content
};

/// The changes from one content of a VDM to the next, in words; empty when nothing did. Definitions are
/// compared by the keys of their JSON form (docs/formats/definition-json.md):
///
///   main.chuck: Chuck 160 -> Chuck 210; A 80 -> 105
///
/// Content that the form does not have is counted by records: "3 records of other data". Fails when a record
/// cannot be read.
Result<std::vector<std::string>> ChangesInWords(const Reading& before, const Reading& now, Detail detail);

/// True when a store keeps both contents as the same records: nothing has to be read to know that nothing
/// changed.
bool HaveSameRecords(const vdm::Vdm& a, const vdm::Vdm& b);

}  // namespace vanzet::history
