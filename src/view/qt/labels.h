#pragma once

#include <QString>

class QWidget;

/// The texts of widgets: their fonts, and the letters of the keyboard that lead to them.
namespace vanzet::view::qt {

/// Finds a letter for each text of a window that leads to it together with the Alt key.
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

/// The sign of values that are not stored yet.
inline QString UnstoredSign() {
  return QStringLiteral("\u25CF");
}

/// The ranks of texts, each with a size and a weight relative to the font of the system.
enum class TextRank { kTitle, kGroup, kLetter };

void SetFont(QWidget& widget, TextRank rank);

}  // namespace vanzet::view::qt
