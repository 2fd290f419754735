#pragma once

#include <array>
#include <string_view>

namespace vanzet::sheet {

enum class Paper { kA4, kA3, kLetter };

/// A sheet of paper, upright, in millimetres.
struct PaperFormat {
  Paper paper;
  std::string_view word;  ///< on the command line
  std::string_view css;   ///< in a style sheet
  double width, height;
};

// clang-format off
inline constexpr std::array<PaperFormat, 3> kPapers = {{
    {Paper::kA4,     "A4",     "A4",     210.0, 297.0},
    {Paper::kA3,     "A3",     "A3",     297.0, 420.0},
    {Paper::kLetter, "letter", "letter", 215.9, 279.4},
}};
// clang-format on

inline constexpr double kPaperMargin = 12;  ///< on all sides, in millimetres

inline const PaperFormat& FormatOf(Paper paper) {
  return kPapers.at(static_cast<std::size_t>(paper));
}

/// The width between the margins, in millimetres.
inline double RoomOn(Paper paper) {
  return FormatOf(paper).width - 2 * kPaperMargin;
}

}  // namespace vanzet::sheet
