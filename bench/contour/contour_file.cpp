#include "contour/contour_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/letter_case.h"
#include "base/path_map.h"

namespace vanzet::contour {
namespace {

Result<DxfContent> WithoutRemarks(Result<Contours> contours) {
  VANZET_TRY(Contours read, std::move(contours));
  return DxfContent{std::move(read), {}};
}

}  // namespace

Result<DxfContent> ReadContourFile(const std::string& file, const DxfOptions& options) {
  if (file == "-") return WithoutRemarks(ReadText(std::cin, "standard input"));
  const std::filesystem::path path = PathMap::OfProcess().Resolve(file);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return Fault{"is a folder", file};
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return Fault{.text = "cannot be read", .file = file, .kind = FaultKind::kMissing};
  if (EqualWithoutCase(path.extension().string(), ".dxf")) return ReadDxf(stream, file, options);
  if (EqualWithoutCase(path.extension().string(), ".xml")) return WithoutRemarks(ReadXml(stream, file));
  return WithoutRemarks(ReadText(stream, file));
}

}  // namespace vanzet::contour
