#include "contour/contour_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/letter_case.h"
#include "base/path_map.h"
#include "contour/text_form.h"
#include "contour/xml_form.h"

namespace vanzet::contour {
namespace {

Result<DxfContent> WithoutRemarks(Result<Contours> contours) {
  if (!contours) return contours.fault();
  return DxfContent{std::move(*contours), {}};
}

}  // namespace

Result<DxfContent> ReadContourFile(const std::string& file, const DxfOptions& options) {
  if (file == "-") return WithoutRemarks(ReadText(std::cin, "standard input"));
  const std::filesystem::path path = PathMap::OfProcess().Resolve(file);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return Fault{"is a folder", file};
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return Fault{"cannot be read", file};
  if (EqualWithoutCase(path.extension().string(), ".dxf")) return ReadDxf(stream, file, options);
  if (EqualWithoutCase(path.extension().string(), ".xml")) return WithoutRemarks(ReadXml(stream, file));
  return WithoutRemarks(ReadText(stream, file));
}

}  // namespace vanzet::contour
