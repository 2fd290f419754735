#include <sstream>

#include "base/numbers.h"
#include "contour/builder.h"
#include "contour/contour_file.h"
#include "contour/library.h"
#include "geometry/kurve.h"
#include "geometry/xml.h"

/// Reader and writer of the library's XML as files of contours.
namespace vanzet::contour {
namespace {

using geometry::Kurve;
using geometry::XmlReader;

constexpr const wchar_t* kRoot = L"CONTOURS";
constexpr const wchar_t* kRootEnd = L"/CONTOURS";

int NumberOf(const std::wstring& name, std::size_t before) {
  const std::string digits(name.begin(), name.end());
  const auto number = WholeInteger(digits);
  return number ? *number : static_cast<int>(before) + 1;
}

/// Builds the contour from its vertices, so that they are checked like those of other files.
Result<Contour> ContourOf(int number, const Kurve& kurve) {
  Builder builder;
  geometry::spVertex v;
  for (int i = 0; i < kurve.nVertices; ++i) {
    kurve.Get(i, v);
    VANZET_DO(i == 0                       ? builder.Start(v.p)
              : v.type == geometry::LINEAR ? builder.LineTo(v.p)
                                           : builder.ArcTo(v.type, v.p, v.pc));
  }
  if (!builder.HasSpans()) return Fault{"the contour has no span"};
  return builder.Take(number);
}

/// Reads a file of contours, with the root element or without.
class XmlContours {
 public:
  XmlContours(std::istream& bytes, std::string name) : xml_(bytes), name_(std::move(name)) {}

  Result<Contours> Read();

 private:
  Fault At(int line, std::string text) const { return {std::move(text), name_, line, 0}; }
  Result<void> ReadContour();

  XmlReader xml_;
  std::string name_;
  Contours contours_;
};

Result<Contours> XmlContours::Read() {
  if (!xml_.IsOpen()) return Fault{.text = "cannot be read", .file = name_, .kind = FaultKind::kSystem};
  const bool hasRoot = xml_.FindTag(kRoot);
  const bool hasSystem = xml_.NextTagIs(L"SYSTEM");
  const int systemLine = xml_.Line();
  if (hasSystem && !xml_.ReadSystem()) {
    return At(systemLine, "the SYSTEM has an unknown unit, or a tolerance that is not above 0");
  }
  // The file's own tolerance has been checked and is not used.
  UseMillimetres();
  while (!xml_.NextTagIs(kRootEnd) && !xml_.AtEnd()) {
    VANZET_DO(ReadContour());
  }
  if (hasRoot && xml_.AtEnd()) return At(xml_.Line(), "the file is cut short: CONTOURS has no end tag");
  if (contours_.empty()) return Fault{"has no contour", name_};
  return std::move(contours_);
}

Result<void> XmlContours::ReadContour() {
  const bool isContour = xml_.NextTagIs(L"KURVE");
  const bool isWorking = xml_.NextTagIs(L"KURVEEX");
  const int line = xml_.Line();
  if (isWorking) return At(line, "a KURVEEX cannot be read back; only a KURVE can");
  if (!isContour) return At(line, "expected a KURVE, found another element");
  std::wstring name;
  Kurve kurve;
  if (!xml_.Read(name, kurve))
    return At(line, "the KURVE is cut short, or one of its elements lacks something");
  auto contour = ContourOf(NumberOf(name, contours_.size()), kurve);
  if (!contour) return At(line, contour.fault().text);
  contours_.push_back(std::move(*contour));
  return {};
}

}  // namespace

std::string XmlForm(const Contours& contours, XmlKind kind) {
  std::ostringstream bytes;
  geometry::XmlWriter xml(bytes);
  xml.startElement(kRoot);
  xml.WriteSystem();
  for (const Contour& contour : contours) {
    const std::wstring name = std::to_wstring(contour.number);
    if (kind == XmlKind::kKurve) {
      xml.Write(name.c_str(), Kurve(contour.curve));
    } else {
      xml.Write(name.c_str(), contour.curve);
    }
  }
  xml.endElement();
  return bytes.str();
}

Result<Contours> ReadXml(std::istream& bytes, const std::string& name) {
  return XmlContours(bytes, name).Read();
}

}  // namespace vanzet::contour
