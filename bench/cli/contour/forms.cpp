#include <nlohmann/json.hpp>

#include "cli/contour/operations.h"
#include "cli/output.h"
#include "contour/contour_file.h"
#include "contour/json_form.h"

/// The operations that write contours in another form.
namespace vanzet::cli {
namespace {

using contour::Contours;
using contour::Drawing;

Result<void> GiveForm(const ContourArguments& arguments, const Contours& contours, const std::string& form) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours});
  VANZET_DO(WritePicture(arguments, std::move(drawing)));
  return arguments.json ? PrintJson(JsonForm(contours)) : Print(form);
}

}  // namespace

Result<void> ContourXml(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  return GiveForm(arguments, contours, XmlForm(contours, arguments.xmlKind));
}

Result<void> ContourText(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, arguments.libraryReads ? contour::ReadLibraryText(arguments.files[0])
                                                         : ReadContours(arguments, 0));
  return GiveForm(arguments, contours, LibraryTextForm(contours, arguments.textForm));
}

}  // namespace vanzet::cli
