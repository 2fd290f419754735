#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/translations.h"
#include "cli/command.h"
#include "contour/constructions.h"
#include "contour/contour_file.h"
#include "contour/drawing.h"
#include "geometry/region.h"

namespace vanzet::cli {

/// The side of a contour that its offset is on. Only closed contours have an inside.
struct OffsetSide {
  const char* flag;
  const char* help;
  int direction;    ///< 1 to the left, -1 to the right; of an anticlockwise contour where it depends on that
  bool isOfClosed;  ///< the side depends on the direction of a closed contour
};
inline constexpr std::array kSides = {
    OffsetSide{"--left", "make the offset to the left of the contour, the default", 1, false},
    OffsetSide{"--right", "make the offset to the right", -1, false},
    OffsetSide{"--inside", "make the offset on the inside of closed contours", 1, true},
    OffsetSide{"--outside", "make the offset on the outside of closed contours", -1, true},
};

/// The operands and options of `vanzet contour OPERATION`.
struct ContourArguments {
  std::vector<std::string> words;
  std::vector<std::string> files;  ///< the words before the numbers, or else "-"
  std::vector<double> numbers;     ///< coordinates and radii, in millimetres
  contour::DxfOptions drawing;
  std::string drawingOption;            ///< one that was given and is for drawings alone
  std::optional<std::int32_t> contour;  ///< only contours with this number
  double tolerance = 0.01;              ///< in millimetres
  geometry::Matrix matrix;
  std::array<bool, kSides.size()> sides = {};  ///< the sides that were given, by the order of `kSides`
  std::optional<contour::OffsetMethod> method;
  int steps = 1;
  bool region = false;  ///< offset all closed contours as one region
  std::optional<geometry::Corner> corner;
  std::optional<geometry::PathEnd> thicken;
  bool area = false;  ///< intersect what the contours enclose
  contour::End end = contour::End::kEnd;
  std::optional<geometry::Point> opening;  ///< of a closed contour that is trimmed
  bool strict = false;                     ///< what is left out is a failure
  bool force = false;
  bool mirror = false;
  contour::XmlKind xmlKind = contour::XmlKind::kKurve;
  contour::LibraryText textForm = contour::LibraryText::kContour;
  bool libraryReads = false;  ///< not the strict reader
  std::string dxf;            ///< the file for a drawing of the result; "-" is standard output
  std::string svg;            ///< the file for a picture; the same
  bool vertexNumbers = false;
  bool isToScale = false;  ///< the picture has the result alone, in millimetres
  bool json = false;
  const Translations* texts = nullptr;  ///< of headings; never null while an operation runs
  bool* hasFindings = nullptr;          ///< set for the answer "no"; never null while an operation runs

  /// The side of an offset. Requires: `CheckContourArguments` was called.
  const OffsetSide& Side() const {
    const auto* const given = std::ranges::find(sides, true);
    return given == sides.end() ? kSides.front() : *std::next(kSides.begin(), given - sides.begin());
  }

  /// Whether an option is for the offset of a region, or for that of each contour.
  bool AsksForRegion() const { return region || corner || thicken; }
  bool AsksForContours() const { return sides[0] || sides[1] || steps > 1 || method; }

  /// Whether standard output has the picture or the drawing, and not what the operation prints.
  bool PrintsFile() const { return svg == "-" || dxf == "-"; }

  geometry::Point PointAt(std::size_t first) const { return {numbers[first], numbers[first + 1]}; }
};

/// The options of an operation besides those of its output.
enum ContourOption : unsigned {
  kFile = 1,  ///< how drawings are read; with `kTolerance`, arcs of their curves have the default tolerance
  kSelect = 2,
  kTolerance = 4,
  kSteps = 8,  ///< of a transformation
  kDxf = 16,
  kOffset = 32,
  kEnd = 64,
  kOpening = 128,
  kForce = 256,
  kMirror = 512,
  kXmlKind = 1024,
  kTextForm = 2048,
  kArea = 4096,
};

/// The answer "no" of a question that a shell can ask: the exit status is 3.
inline void AnswerNo(const ContourArguments& arguments) {
  *arguments.hasFindings = true;
}

/// Adds the options of an operation, which stores what they are given in `arguments`.
void AddContourOptions(Command& command, ContourArguments& arguments, unsigned options);

/// Checks what the options mean together: at most one side, one kind of offset, one thing on standard
/// output, and outputs whose names do not end like another form. Throws `WrongUsage`.
void CheckContourArguments(const ContourArguments& arguments);

/// Splits the words into files, at most `files`, and exactly `numbers` numbers after them.
/// `operands` names all of them. Throws `WrongUsage`.
void SplitContourWords(ContourArguments& arguments, const std::string& operands, std::size_t files,
                       std::size_t numbers);

}  // namespace vanzet::cli
