#include "view/shared/mnemonics.h"

#include "base/letter_case.h"
#include "base/utf8.h"

namespace vanzet::view {
namespace {

/// The index of the first letter that `isWanted` takes, or npos.
template <class Predicate>
std::size_t FirstLetter(std::string_view text, Predicate isWanted) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isWanted(i)) return i;
  }
  return std::string_view::npos;
}

std::string EscapeSigns(std::string_view text) {
  std::string escaped;
  for (const char c : text) escaped.append(c == '&' ? 2 : 1, c);
  return escaped;
}

/// Whether the last character of a text is a letter. Those beyond ASCII are taken for letters, but for the
/// signs of U+0080 to U+00BF and of U+2000 to U+2FFF.
bool EndsWithLetter(std::string_view text) {
  if (text.empty()) return false;
  const char small = SmallLetter(text.back());
  if (small >= 'a' && small <= 'z') return true;
  std::size_t lead = text.size() - 1;
  while (lead > 0 && (text[lead] & 0xC0) == 0x80) --lead;
  const auto byte = static_cast<unsigned char>(text[lead]);
  return byte >= 0xC3 && byte != 0xE2;
}

}  // namespace

std::string Mnemonics::Mark(std::string_view text) {
  if (!text.empty() && Utf8Length(text) == text.size()) return '&' + std::string(text);
  const auto isFree = [&](std::size_t i) { return IsFree(text[i]); };
  const auto beginsAWord = [&](std::size_t i) { return isFree(i) && !EndsWithLetter(text.substr(0, i)); };
  std::size_t at = FirstLetter(text, beginsAWord);
  if (at == std::string_view::npos) at = FirstLetter(text, isFree);
  if (at == std::string_view::npos) return EscapeSigns(text);
  taken_ += SmallLetter(text[at]);
  return EscapeSigns(text.substr(0, at)) + '&' + EscapeSigns(text.substr(at));
}

void Mnemonics::Reserve(std::string_view letters) {
  for (const char letter : letters) taken_ += SmallLetter(letter);
}

void Mnemonics::Release(std::string_view letters) {
  for (const char letter : letters) std::erase(taken_, SmallLetter(letter));
}

bool Mnemonics::IsFree(char letter) const {
  // Letters beyond these are not on every keyboard.
  const char small = SmallLetter(letter);
  return small >= 'a' && small <= 'z' && taken_.find(small) == std::string::npos;
}

}  // namespace vanzet::view
