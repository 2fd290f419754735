#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/translations.h"
#include "cli/command.h"
#include "contour/constructions.h"
#include "contour/contour_file.h"
#include "contour/drawing.h"

namespace vanzet::cli {

/// The operands and options of `vanzet contour OPERATION`.
struct ContourArguments {
  std::vector<std::string> words;
  std::vector<std::string> files;  ///< the words before the numbers, or else "-"
  std::vector<double> numbers;     ///< coordinates and radii, in millimetres
  contour::DxfOptions drawing;
  std::optional<std::int32_t> contour;  ///< only contours with this number
  double tolerance = 0.01;              ///< in millimetres
  geometry::Matrix matrix;
  bool toTheRight = false;
  contour::OffsetMethod method = contour::OffsetMethod::kKurveEx;
  int steps = 1;
  contour::End end = contour::End::kEnd;
  std::optional<geometry::Point> opening;  ///< of a closed contour that is trimmed
  bool force = false;
  bool mirror = false;
  contour::XmlKind xmlKind = contour::XmlKind::kKurve;
  contour::LibraryText textForm = contour::LibraryText::kContour;
  bool libraryReads = false;  ///< not the strict reader
  std::string dxf;            ///< the file for a drawing of the result
  std::string svg;            ///< the file for a picture
  bool vertexNumbers = false;
  bool json = false;
  const Translations* texts = nullptr;  ///< of headings; never null while an operation runs

  geometry::Point PointAt(std::size_t first) const { return {numbers[first], numbers[first + 1]}; }
};

/// The options of an operation besides those of its output.
enum ContourOption : unsigned {
  kFile = 1,  ///< how drawings are read
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
};

/// Adds the options of an operation, which stores what they are given in `arguments`.
void AddContourOptions(Command& command, ContourArguments& arguments, unsigned options);

/// Splits the words into files, at most `files`, and exactly `numbers` numbers after them.
/// Throws `WrongUsage`.
void SplitContourWords(ContourArguments& arguments, std::size_t files, std::size_t numbers);

}  // namespace vanzet::cli
