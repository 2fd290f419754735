#pragma once

#include <cstdint>

#include "view/qt/texts.h"

namespace vanzet::view::qt {

enum class Unit { kNone, kMillimetre, kDegree };

/// "mm", "°", or nothing.
QString UnitText(Unit unit);

/// What a letter stands for.
struct LetterWords {
  std::int32_t type;
  char letter;
  Unit unit;
  const char* name;
};

/// The row of a type's letter; null for one that the type does not have.
const LetterWords* FindLetterWords(std::int32_t type, char letter);

}  // namespace vanzet::view::qt
