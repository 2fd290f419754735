#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"
#include "cli/contour/options.h"
#include "contour/contour.h"
#include "contour/drawing.h"

/// The input and output of operations on contours.
namespace vanzet::cli {

/// Fails when the picture or the drawing would replace a file that the operation reads.
Result<void> CheckOutputs(const ContourArguments& arguments);

/// Whether an operation keeps small arcs, as those do that make a region of the contours.
using MakesRegion = bool (*)(const ContourArguments& arguments, const contour::Contours& contours);

/// Reads the chosen contours of a file; `file` counts the files of the command from 0. What is left out of a
/// drawing, and what an operation on contours does not keep, is reported on standard error.
Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file,
                                       MakesRegion makesRegion = nullptr);

/// Reads the only contour of a file. Fails when there are several.
Result<contour::Contour> ReadOneContour(const ContourArguments& arguments, std::size_t file);

/// Prints what an operation tells, unless standard output has its picture or its drawing.
Result<void> PrintResult(const ContourArguments& arguments, const std::string& text);
Result<void> PrintResult(const ContourArguments& arguments, const nlohmann::ordered_json& json);

/// Writes the picture if the command asks for one.
Result<void> WritePicture(const ContourArguments& arguments, contour::Drawing drawing);

/// Writes the picture and the drawing of contours if the command asks for them.
Result<void> WriteDrawings(const ContourArguments& arguments, const contour::Drawing& drawing,
                           const contour::Contours& made);

/// Does the same, and prints the contours.
Result<void> WriteContours(const ContourArguments& arguments, const contour::Drawing& drawing,
                           const contour::Contours& made);

}  // namespace vanzet::cli
