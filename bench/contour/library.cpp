#include "contour/library.h"

#include "geometry/units.h"

namespace vanzet::contour {

void UseMillimetres() {
  geometry::SetUnits(0);
}

Fault LibraryFault(const wchar_t* message) {
  std::string text;
  for (; *message != L'\0'; ++message) text += *message < 128 ? static_cast<char>(*message) : '?';
  return Fault{"the geometry refuses this: " + text};
}

}  // namespace vanzet::contour
