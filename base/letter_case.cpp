#include "base/letter_case.h"

#include <algorithm>

namespace vanzet {

char SmallLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, SmallLetter, SmallLetter);
}

bool LessWithoutCase::operator()(std::string_view a, std::string_view b) const {
  return std::ranges::lexicographical_compare(a, b, {}, SmallLetter, SmallLetter);
}

}  // namespace vanzet
