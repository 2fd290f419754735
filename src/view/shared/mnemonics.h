#pragma once

#include <string>
#include <string_view>

namespace vanzet::view {

/// Finds a letter for each text of a window that leads to it together with the Alt key.
class Mnemonics {
 public:
  /// The text with a '&' before a letter that no text before has taken: one that begins a word if possible.
  /// Without a free letter only its own '&' are doubled. A text of one letter has that one, reserved or not.
  std::string Mark(std::string_view text);

  /// Keeps letters from being taken.
  void Reserve(std::string_view letters);
  void Release(std::string_view letters);

 private:
  bool IsFree(char letter) const;

  std::string taken_;  ///< small ones
};

}  // namespace vanzet::view
