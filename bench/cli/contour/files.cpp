#include "cli/contour/files.h"

#include <algorithm>
#include <iostream>
#include <iterator>

#include <nlohmann/json.hpp>

#include "base/files/whole_file.h"
#include "base/one_line.h"
#include "base/path_map.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/standard_input.h"
#include "contour/contour_file.h"
#include "contour/json_form.h"

namespace vanzet::cli {
namespace {

Fault NoSuchContour(std::int32_t number, const contour::Contours& contours, const std::string& file) {
  constexpr std::size_t kMostListed = 10;
  std::string text = "no such contour: " + std::to_string(number) + "; the file has";
  for (std::size_t i = 0; i < contours.size() && i < kMostListed; ++i) {
    text += (i == 0 ? " " : ", ") + std::to_string(contours[i].number);
  }
  return {text + (contours.size() > kMostListed ? " and more" : ""), file};
}

contour::Contours Numbered(std::int32_t number, const contour::Contours& contours) {
  contour::Contours chosen;
  std::ranges::copy_if(contours, std::back_inserter(chosen),
                       [&](const contour::Contour& contour) { return contour.number == number; });
  return chosen;
}

Result<void> WriteFile(const std::string& name, const std::string& bytes) {
  if (name == "-") return Print(bytes);
  return files::ReplaceFile(PathMap::OfProcess().Resolve(name), bytes);
}

/// Fails when an option for drawings was given and no file is one.
Result<void> CheckDrawingOptions(const ContourArguments& arguments, const contour::DxfContent& content,
                                 const std::string& file) {
  if (content.isDrawing || arguments.drawingOption.empty() || arguments.files.size() > 1) return {};
  return Fault{arguments.drawingOption + " has no effect, since the file is not a drawing", file};
}

/// Prints what there is to say about a file. Fails when something was not read as it is drawn, if that is
/// asked for.
Result<void> ReportRemarks(const ContourArguments& arguments, const contour::DxfContent& content,
                           const std::string& file, bool isForRegion) {
  bool hasLoss = false;
  for (const contour::Remark& remark : content.remarks) {
    if (isForRegion && remark.isKeptByRegions) continue;
    std::cerr << "vanzet: " + OneLine(remark.text) + "\n";
    hasLoss = hasLoss || remark.isLoss;
  }
  if (!hasLoss || !arguments.strict) return {};
  return Fault{"not everything was read as it is drawn, and --strict is given",
               file == "-" ? "standard input" : file};
}

}  // namespace

Result<void> CheckOutputs(const ContourArguments& arguments) {
  const PathMap paths = PathMap::OfProcess();
  std::vector<std::filesystem::path> inputs;
  for (const std::string& name : arguments.files) {
    if (name != "-") inputs.push_back(paths.Resolve(name));
  }
  for (const std::string& output : {arguments.svg, arguments.dxf}) {
    if (output != "-") VANZET_DO(CheckIsNoInput(paths.Resolve(output), inputs));
  }
  return {};
}

Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file,
                                       MakesRegion makesRegion) {
  const std::string& name = arguments.files[file];
  if (name == "-") HintAtTerminal("the contours");
  VANZET_TRY(auto content, contour::ReadContourFile(name, arguments.drawing));
  VANZET_DO(CheckDrawingOptions(arguments, content, name));
  contour::Contours chosen =
      arguments.contour ? Numbered(*arguments.contour, content.contours) : std::move(content.contours);
  const bool isForRegion = makesRegion && makesRegion(arguments, chosen);
  VANZET_DO(ReportRemarks(arguments, content, name, isForRegion));
  if (chosen.empty()) return NoSuchContour(*arguments.contour, content.contours, name);
  return chosen;
}

Result<contour::Contour> ReadOneContour(const ContourArguments& arguments, std::size_t file) {
  VANZET_TRY(auto contours, ReadContours(arguments, file));
  if (contours.size() == 1) return std::move(contours.front());
  return Fault{"the file has " + Counted(contours.size(), "contour") + "; choose one with --contour",
               arguments.files[file]};
}

Result<void> PrintResult(const ContourArguments& arguments, const std::string& text) {
  return arguments.PrintsFile() ? Result<void>() : Print(text);
}

Result<void> PrintResult(const ContourArguments& arguments, const Json& json) {
  return arguments.PrintsFile() ? Result<void>() : PrintJson(json);
}

Result<void> WritePicture(const ContourArguments& arguments, contour::Drawing drawing) {
  if (arguments.svg.empty()) return {};
  drawing.numbers = arguments.vertexNumbers;
  return WriteFile(arguments.svg, contour::Svg(drawing));
}

Result<void> WriteDrawings(const ContourArguments& arguments, const contour::Drawing& drawing,
                           const contour::Contours& made) {
  constexpr const char* kLayer = "CONTOURS";
  if (arguments.isToScale) {
    VANZET_DO(WriteFile(arguments.svg, contour::SvgToScale(made)));
  } else {
    VANZET_DO(WritePicture(arguments, drawing));
  }
  return arguments.dxf.empty() ? Result<void>() : WriteFile(arguments.dxf, contour::DxfForm(made, kLayer));
}

Result<void> WriteContours(const ContourArguments& arguments, const contour::Drawing& drawing,
                           const contour::Contours& made) {
  VANZET_DO(WriteDrawings(arguments, drawing, made));
  return arguments.json ? PrintResult(arguments, JsonForm(made)) : PrintResult(arguments, TextForm(made));
}

}  // namespace vanzet::cli
