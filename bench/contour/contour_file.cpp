#include "contour/contour_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/path_map.h"
#include "contour/file_form.h"

namespace vanzet::contour {
namespace {

Result<DxfContent> WithoutRemarks(Result<Contours> contours) {
  VANZET_TRY(Contours read, std::move(contours));
  return DxfContent{std::move(read)};
}

/// Counts the arcs that the library does not have.
Result<DxfContent> WithSmallArcs(Result<DxfContent> read, const std::string& name) {
  VANZET_TRY(DxfContent content, std::move(read));
  int count = 0;
  for (const Contour& contour : content.contours) count += contour.arcsAsLines;
  if (count == 0) return content;
  const std::string radius = " under 0.005 mm radius ";
  const std::string text = count == 1 ? "1 arc" + radius + "was read as a line"
                                      : std::to_string(count) + " arcs" + radius + "were read as lines";
  content.remarks.push_back({name + ": " + text, true, true});
  return content;
}

Result<DxfContent> ReadBytes(std::istream& stream, const std::string& name, const DxfOptions& options) {
  HeadedStream bytes(stream);
  switch (FormOf(bytes.head(), name)) {
    case FileForm::kDrawing: return ReadDxf(bytes, name, options);
    case FileForm::kXml: return WithoutRemarks(ReadXml(bytes, name));
    case FileForm::kText: break;
  }
  return WithoutRemarks(ReadText(bytes, name));
}

}  // namespace

Result<DxfContent> ReadContourFile(const std::string& file, const DxfOptions& options) {
  if (file == "-") return WithSmallArcs(ReadBytes(std::cin, "standard input", options), "standard input");
  const std::filesystem::path path = PathMap::OfProcess().Resolve(file);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return Fault{"is a folder", file};
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return Fault{.text = "cannot be read", .file = file, .kind = FaultKind::kMissing};
  return WithSmallArcs(ReadBytes(stream, file, options), file);
}

}  // namespace vanzet::contour
