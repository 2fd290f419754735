#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/result.h"

namespace vanzet::project {

/// The macro variables of the host. The first character of a name is its type: 'i' an integer, 'w' a real,
/// '$' a text. A variable exists from its first value on.
class Variables {
 public:
  /// True when a variable of that name holds an integer.
  static bool IsInteger(std::string_view name);

  /// The variables that every project has, at their start values.
  Variables();

  std::optional<std::int32_t> Integer(std::string_view name) const { return Value<std::int32_t>(name); }
  std::optional<double> Real(std::string_view name) const { return Value<double>(name); }
  std::optional<std::string> Text(std::string_view name) const { return Value<std::string>(name); }

  /// Fails when the name is of another type.
  Result<void> Set(std::string_view name, std::int32_t value);
  Result<void> Set(std::string_view name, double value);
  Result<void> Set(std::string_view name, std::string value);

  /// Reads the value by the type of the name. Fails when it is not such a number, or the name has no type.
  Result<void> SetFromText(std::string_view name, std::string_view text);

  /// All values by their names, as a macro line writes them: texts in single quotes.
  std::map<std::string, std::string> Texts() const;

 private:
  using AnyValue = std::variant<std::int32_t, double, std::string>;

  template <class T>
  std::optional<T> Value(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end() || !std::holds_alternative<T>(found->second)) return std::nullopt;
    return std::get<T>(found->second);
  }

  std::map<std::string, AnyValue, std::less<>> values_;
};

}  // namespace vanzet::project
