#pragma once

#include <string_view>

/// Comparison of names without regard to case, for sections and keys of an ini, drives, and files of a shop.
/// Only A to Z have a case, whatever the locale.
namespace vanzet {

/// The small letter of a capital; every other character is returned unchanged.
char SmallLetter(char c);

bool EqualWithoutCase(std::string_view a, std::string_view b);

/// An order for maps by such names.
struct LessWithoutCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

}  // namespace vanzet
