#include <sstream>

#include "fuzz/fuzz.h"
#include "geometry/xml.h"

namespace {

using geometry::XmlReader;

/// Reads elements of one kind until there are none.
template <class Element>
void ReadAll(const std::string& bytes) {
  std::istringstream stream(bytes);
  XmlReader xml(stream);
  xml.ReadSystem();
  std::wstring name;
  Element element;
  while (xml.Read(name, element)) {
  }
  geometry::SetUnits(2);  // whatever tolerance the file told
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = vanzet::fuzz::TextOf(data, size);
  ReadAll<geometry::Point>(bytes);
  ReadAll<geometry::spVertex>(bytes);
  ReadAll<geometry::Span>(bytes);
  ReadAll<geometry::Kurve>(bytes);
  ReadAll<geometry::KurveEx>(bytes);
  return 0;
}
