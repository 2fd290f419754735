#pragma once

#include <string_view>

/// Names that are the same but for the case of their letters, as sections and keys of an ini, drives, and
/// files of a shop are. Only A to Z have a case, whatever the locale.
namespace vanzet {

/// The small letter of a capital; every other character as it is.
char SmallLetter(char c);

bool EqualWithoutCase(std::string_view a, std::string_view b);

/// An order for maps by such names.
struct LessWithoutCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

}  // namespace vanzet
