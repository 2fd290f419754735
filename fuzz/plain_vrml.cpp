#include "modeller/plain_vrml.h"
#include "fuzz.h"

/// The 3D text of a device in a definition from elsewhere, as the workbench itself reads it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto read = vanzet::modeller::ReadPlainVrml(vanzet::fuzz::TextOf(data, size));
  if (!read) return 0;
  for (const auto& named : *read) {
    for (const auto& triangle : named.mesh.triangles) {
      for (const int corner : triangle) {
        static_cast<void>(named.mesh.points.at(static_cast<std::size_t>(corner)));
      }
    }
  }
  return 0;
}
