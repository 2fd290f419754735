#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/result.h"
#include "vdm/store_engine.h"
#include "vdm/vdm.h"

namespace vanzet::project {

/// The version of a definition that the module and the workbench make.
inline constexpr std::int32_t kDefinitionVersion = 100;

/// One operation of a definition: a record whose item 0 divides the others into sections.
struct Operation {
  std::int32_t kind = 0;
  bool flag = false;
  std::vector<std::vector<std::string>> sections;
  std::vector<std::size_t> counts;  ///< the items of each section; `sections` can have fewer of a head
  /// The damage of the record, or the empty text; the other fields hold as much as could be read.
  std::string damage;

  /// Its name for people: the first item of section 0.
  std::string Label() const;
};

/// The definition of a spur, as people and programs read it.
struct Definition {
  std::int32_t version = 0;  ///< 0: it has none
  std::vector<Operation> operations;

  bool IsDamaged() const;

  /// The items of a section; empty when the section does not exist.
  const std::vector<std::string>& Items(std::size_t operation, std::size_t section) const;
};

/// Reads the operations of a VDM. Fails only when the store cannot read a record: a record that is not an
/// operation is reported as damage. The form of a header: docs/formats/definition.md.
Result<Definition> ReadDefinition(const vdm::Vdm& content);

/// The same from the heads of the records: the sections have the items that the heads have.
Definition ReadDefinition(const vdm::RecordHeads& heads);

}  // namespace vanzet::project
