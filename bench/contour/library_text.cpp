#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "base/path_map.h"
#include "contour/builder.h"
#include "contour/contour_file.h"
#include "contour/library.h"
#include "geometry/units.h"

/// Reader and writer of the text forms of the geometry library itself.
namespace vanzet::contour {
namespace {

using geometry::KurveEx;

/// Sets the unit to metres, which the contour text presumes everywhere and the other forms presume for areas.
class InMetres {
 public:
  InMetres() { geometry::SetUnits(2); }
  ~InMetres() { UseMillimetres(); }
  InMetres(const InMetres&) = delete;
  InMetres& operator=(const InMetres&) = delete;
};

KurveEx Metres(const KurveEx& curve) {
  KurveEx metres;
  for (geometry::Span span : curve.spans) {
    span.Scale(0.001);
    metres.Add(span, true);
  }
  return metres;
}

void Write(std::FILE* stream, const Contour& contour, LibraryText form) {
  const KurveEx curve = Metres(contour.curve);
  const std::string name = "contour" + std::to_string(contour.number);
  switch (form) {
    case LibraryText::kContour: return curve.Write(stream, contour.number);
    case LibraryText::kReport: return curve.Print(stream);
    case LibraryText::kVertices: return curve.WriteSourceVertices(stream, name.c_str());
    case LibraryText::kSpans: return curve.WriteSourceSpans(stream, name.c_str());
  }
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace

std::string LibraryTextForm(const Contours& contours, LibraryText form) {
  const InMetres metres;
  char* text = nullptr;
  std::size_t size = 0;
  File stream(open_memstream(&text, &size));
  for (const Contour& contour : contours) Write(stream.get(), contour, form);
  stream.reset();
  const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
  return {text, size};
}

Result<Contours> ReadLibraryText(const std::string& file) {
  const std::filesystem::path path = PathMap::OfProcess().Resolve(file);
  std::error_code error;
  const bool isFile = std::filesystem::is_regular_file(path, error);  // others may have no end
  const File stream(isFile ? std::fopen(path.c_str(), "r") : nullptr);
  if (!stream) return Fault{.text = "cannot be read", .file = file, .kind = FaultKind::kMissing};
  Contours contours;
  KurveEx curve;
  while (true) {
    const auto read = Guarded([&] { return curve.Read(stream.get()); });
    if (!read) return Fault{read.fault().text, file};
    if (!*read) break;
    auto contour = ContourOf(static_cast<int>(contours.size()) + 1, curve);
    if (!contour) return Fault{contour.fault().text, file};
    contours.push_back(std::move(*contour));
  }
  if (contours.empty()) return Fault{"has no contour", file};
  return contours;
}

}  // namespace vanzet::contour
