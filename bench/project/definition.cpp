#include "project/definition.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"

namespace vanzet::project {
namespace {

/// The integers of a header, one after the other.
class Fields {
 public:
  explicit Fields(std::string_view text) : rest_(text) {}

  std::optional<std::int32_t> Next() {
    const auto number = IntegerPrefix(rest_);
    if (!number) return std::nullopt;
    rest_.remove_prefix(number->used);
    return number->value;
  }

 private:
  std::string_view rest_;
};

Operation Damaged(Operation operation, std::string damage) {
  operation.damage = std::move(damage);
  return operation;
}

Operation ReadOperation(const vdm::Record& record) {
  Operation operation;
  if (record.Size() == 0) return Damaged(operation, "the record has no header");
  Fields header(record[0]);
  const auto kind = header.Next();
  const auto flag = header.Next();
  const auto sections = header.Next();
  if (!kind || !flag || !sections) return Damaged(operation, "no header: '" + record[0] + "'");
  operation.kind = *kind;
  operation.flag = *flag != 0;

  std::size_t item = 1;
  for (std::int32_t section = 0; section < *sections; ++section) {
    const auto count = header.Next();
    if (!count) return Damaged(operation, "the header counts fewer sections than it says");
    auto& items = operation.sections.emplace_back();
    for (std::int32_t i = 0; i < *count; ++i, ++item) {
      if (item >= record.Size()) return Damaged(operation, "the header counts more items than there are");
      items.push_back(record[item]);
    }
  }
  if (header.Next()) return Damaged(operation, "the header counts more sections than it says");
  if (item < record.Size()) return Damaged(operation, "the header counts fewer items than there are");
  return operation;
}

}  // namespace

std::string Operation::Label() const {
  return sections.empty() || sections[0].empty() ? std::string() : sections[0][0];
}

const std::vector<std::string>& Definition::Items(std::size_t operation, std::size_t section) const {
  static const std::vector<std::string> kNone;
  if (operation >= operations.size()) return kNone;
  const auto& sections = operations[operation].sections;
  return section < sections.size() ? sections[section] : kNone;
}

bool Definition::IsDamaged() const {
  return std::ranges::any_of(operations,
                             [](const Operation& operation) { return !operation.damage.empty(); });
}

Result<Definition> ReadDefinition(const vdm::Vdm& content) {
  Definition definition;
  for (std::size_t record = 0; record < content.Size(); ++record) {
    VANZET_TRY(const auto read, content.Read(record));
    definition.operations.push_back(ReadOperation(*read));
  }
  if (!definition.operations.empty()) {
    const auto& sections = definition.operations[0].sections;
    const auto version =
        !sections.empty() && sections[0].size() >= 2 ? IntegerPrefix(sections[0][1]) : std::nullopt;
    // A version that does not fit counts as none, as the module reads it.
    if (version) definition.version = version->value;
  }
  return definition;
}

}  // namespace vanzet::project
