#pragma once

#include <QString>

class QWidget;

/// The texts of widgets and their fonts.
namespace vanzet::view::qt {

/// The sign of values that are not stored yet.
inline QString UnstoredSign() {
  return QStringLiteral("\u25CF");
}

/// The ranks of texts, each with a size and a weight relative to the font of the system.
enum class TextRank { kTitle, kGroup, kLetter };

void SetFont(QWidget& widget, TextRank rank);

}  // namespace vanzet::view::qt
