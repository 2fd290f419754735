#include "modeller/body_table.h"

#include <array>
#include <bit>
#include <limits>
#include <utility>

#include "base/letter_case.h"
#include "modeller/body.h"

namespace vanzet::modeller {

namespace {

/// A run that makes more different bodies than this remembers the latest ones.
constexpr std::size_t kMostMade = 256;

}  // namespace

void Recipe::Add(std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    bytes_.append(std::bit_cast<std::array<char, sizeof(double)>>(number).data(), sizeof(double));
  }
}

Result<Body> BodyTable::MakeOnce(const Recipe& recipe, const std::function<Result<Body>()>& make) {
  if (const auto made = made_.find(recipe); made != made_.end()) return made->second;
  VANZET_TRY(const auto body, make());
  if (made_.size() == kMostMade) made_.clear();
  made_.emplace(recipe, body);
  return body;
}

Result<std::int32_t> BodyTable::Add(Body body, std::string name) {
  if (const std::int32_t other = NumberOf(name); other != 0) {
    return Fault{"body " + std::to_string(other) + " already has the name '" + name + "'"};
  }
  if (last_ == std::numeric_limits<std::int32_t>::max()) return Fault{"all body numbers are used up"};
  entries_.emplace(++last_, Entry{std::move(body), std::move(name)});
  return last_;
}

Result<Body> BodyTable::Get(std::int32_t number) const {
  const auto entry = entries_.find(number);
  if (entry == entries_.end()) {
    return Fault{.text = "body " + std::to_string(number) + " does not exist", .kind = FaultKind::kMissing};
  }
  return entry->second.body;
}

Result<void> BodyTable::Move(std::int32_t number, const geometry::Vector3d& by) {
  VANZET_TRY(const auto body, Get(number));
  return Change(number, MoveBody(body, by));
}

Result<void> BodyTable::Turn(std::int32_t number, const Axis& axis, double degrees) {
  VANZET_TRY(const auto body, Get(number));
  return Change(number, TurnBody(body, axis, degrees));
}

Result<void> BodyTable::Change(std::int32_t number, Result<Body> changed) {
  if (!changed) return changed.fault();
  entries_.at(number).body = std::move(*changed);
  return {};
}

Result<void> BodyTable::Delete(std::int32_t number) {
  VANZET_TRY(const auto body, Get(number));
  entries_.erase(number);
  return {};
}

std::string BodyTable::NameOf(std::int32_t number) const {
  const auto entry = entries_.find(number);
  return entry == entries_.end() ? "" : entry->second.name;
}

std::int32_t BodyTable::NumberOf(std::string_view name) const {
  if (name.empty()) return 0;
  for (const auto& [number, entry] : entries_) {
    if (EqualWithoutCase(entry.name, name)) return number;
  }
  return 0;
}

std::vector<std::int32_t> BodyTable::Numbers() const {
  std::vector<std::int32_t> numbers;
  for (const auto& [number, entry] : entries_) numbers.push_back(number);
  return numbers;
}

}  // namespace vanzet::modeller
