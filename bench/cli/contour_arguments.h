#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/context.h"
#include "contour/contour_file.h"
#include "contour/drawing.h"

namespace vanzet::cli {

/// What stands behind `vanzet contour OPERATION`.
struct ContourArguments {
  std::vector<std::string> words;
  std::vector<std::string> files;  ///< the words before the numbers; "-" when there is none
  std::vector<double> numbers;     ///< coordinates and radii, in millimetres
  contour::DxfOptions drawing;
  std::optional<std::int32_t> contour;  ///< only contours of this number
  double tolerance = 0.01;              ///< in millimetres
  geometry::Matrix matrix;
  std::string svg;  ///< a picture goes to this file
  bool vertexNumbers = false;
  bool json = false;

  geometry::Point PointAt(std::size_t first) const { return {numbers[first], numbers[first + 1]}; }
};

/// Which options an operation has besides those of its results.
enum ContourOption : unsigned {
  kNoOption = 0,
  kFile = 1,  ///< how drawings are read
  kSelect = 2,
  kTolerance = 4,
  kSteps = 8,  ///< of a transformation
};

/// Adds the options but for the steps.
void AddContourOptions(CLI::App& command, ContourArguments& arguments, unsigned options);

/// Adds --move, --turn, --mirror and --scale; `TakeContourSteps` makes the matrix of them, in the order
/// given, when the command line was read.
void AddContourSteps(CLI::App& command);
void TakeContourSteps(const CLI::App& command, geometry::Matrix& matrix);

/// Parts the words into files, at most `files`, and exactly `numbers` numbers behind them.
void SplitContourWords(ContourArguments& arguments, std::size_t files, std::size_t numbers);

/// The number of an argument. All of these throw CLI::ValidationError for what is none or out of range.
double ReadReal(const std::string& name, const std::string& text, double least, double most);

/// The contours of a file, counted from 0; those that were chosen. What was left out of a drawing is told on
/// standard error.
Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file);

/// Writes the picture, when one is wanted.
Result<void> WritePicture(const ContourArguments& arguments, contour::Drawing drawing);

}  // namespace vanzet::cli
