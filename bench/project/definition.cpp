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

/// Reads a record of `size` items, of which `record` has the first.
Operation ReadOperation(const vdm::Record& record, std::size_t size) {
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
    operation.counts.push_back(static_cast<std::size_t>(std::max(0, *count)));
    const std::size_t end = item + operation.counts.back();
    for (; item < std::min(end, record.Size()); ++item) items.push_back(record[item]);
    if (end > size) return Damaged(operation, "the header counts more items than there are");
    item = end;
  }
  if (header.Next()) return Damaged(operation, "the header counts more sections than it says");
  if (item < size) return Damaged(operation, "the header counts fewer items than there are");
  return operation;
}

/// A version that does not fit counts as none, as the module reads it.
std::int32_t VersionOf(const Definition& definition) {
  const auto& head = definition.Items(0, 0);
  const auto version = head.size() >= 2 ? IntegerPrefix(head[1]) : std::nullopt;
  return version ? version->value : 0;
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
    definition.operations.push_back(ReadOperation(*read, read->Size()));
  }
  definition.version = VersionOf(definition);
  return definition;
}

Definition ReadDefinition(const vdm::RecordHeads& heads) {
  Definition definition;
  for (const vdm::RecordHead& head : heads) {
    definition.operations.push_back(ReadOperation(head.first, head.items));
  }
  definition.version = VersionOf(definition);
  return definition;
}

}  // namespace vanzet::project
