#include <nlohmann/json.hpp>

#include "base/files/whole_file.h"
#include "base/path_map.h"
#include "cli/contour/arguments.h"
#include "cli/output.h"
#include "contour/contour_file.h"
#include "contour/json_form.h"

/// What operations on contours leave behind: pictures, drawings, text.
namespace vanzet::cli {
namespace {

Result<void> WriteFile(const std::string& name, const std::string& bytes) {
  return files::ReplaceFile(PathMap::OfProcess().Resolve(name), bytes);
}

}  // namespace

Result<void> WritePicture(const ContourArguments& arguments, contour::Drawing drawing) {
  if (arguments.svg.empty()) return {};
  drawing.numbers = arguments.vertexNumbers;
  return WriteFile(arguments.svg, contour::Svg(drawing));
}

Result<void> GiveContours(const ContourArguments& arguments, const contour::Drawing& drawing,
                          const contour::Contours& made) {
  constexpr const char* kLayer = "CONTOURS";
  VANZET_DO(WritePicture(arguments, drawing));
  if (!arguments.dxf.empty()) {
    VANZET_DO(WriteFile(arguments.dxf, contour::DxfForm(made, kLayer)));
  }
  return arguments.json ? PrintJson(JsonForm(made)) : Print(TextForm(made));
}

}  // namespace vanzet::cli
