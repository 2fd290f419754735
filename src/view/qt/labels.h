#pragma once

class QWidget;

/// The texts of widgets and their fonts.
namespace vanzet::view::qt {

/// The ranks of texts, each with a size and a weight relative to the font of the system.
enum class TextRank { kTitle, kGroup, kLetter };

void SetFont(QWidget& widget, TextRank rank);

}  // namespace vanzet::view::qt
