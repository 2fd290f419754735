#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vanzet::drawing {

/// Numbers for names, given in the order of asking and good for the whole run: a name that goes and comes
/// again has its number back.
class NameNumbers {
 public:
  explicit NameNumbers(std::int32_t first) : first_(first) {}

  std::int32_t NumberOf(const std::string& name) {
    const auto place = std::ranges::find(names_, name) - names_.begin();
    if (place == std::ssize(names_)) names_.push_back(name);
    return first_ + static_cast<std::int32_t>(place);
  }

  std::optional<std::string> NameOf(std::int32_t number) const {
    const auto place = static_cast<std::int64_t>(number) - first_;
    if (place < 0 || place >= std::ssize(names_)) return std::nullopt;
    return names_[static_cast<std::size_t>(place)];
  }

 private:
  std::int32_t first_;
  std::vector<std::string> names_;
};

}  // namespace vanzet::drawing
