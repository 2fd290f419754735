#pragma once

#include <QString>

namespace vanzet::view::qt {

/// Gives each text of a window a letter of its own to be reached by with the Alt key.
class Mnemonics {
 public:
  /// The text with a '&' before a letter that no text before has taken: one that begins a word if possible.
  /// Without a free letter only its own '&' are doubled. A text of one letter has that one, reserved or not.
  QString Mark(const QString& text);

  /// Keeps letters from being taken.
  void Reserve(const QString& letters) { taken_ += letters; }
  void Release(const QString& letters);

 private:
  bool IsFree(QChar letter) const;

  QString taken_;  ///< in upper case
};

}  // namespace vanzet::view::qt
