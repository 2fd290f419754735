#pragma once

#include "base/result.h"
#include "cli/contour/options.h"
#include "contour/contour.h"
#include "contour/drawing.h"

/// What operations on contours read, and what they write and print.
namespace vanzet::cli {

/// The contours of a file, counted from 0; those that were chosen. What was left out of a drawing is told on
/// standard error.
Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file);

/// The same; refused when there are several.
Result<contour::Contour> ReadOneContour(const ContourArguments& arguments, std::size_t file);

/// Writes the picture, when one is wanted.
Result<void> WritePicture(const ContourArguments& arguments, contour::Drawing drawing);

/// Writes the picture and the drawing, when they are wanted, and prints what was made.
Result<void> GiveContours(const ContourArguments& arguments, const contour::Drawing& drawing,
                          const contour::Contours& made);

}  // namespace vanzet::cli
