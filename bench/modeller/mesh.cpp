#include "modeller/mesh.h"

#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/number_text.h"
#include "modeller/shape.h"

namespace vanzet::modeller {
namespace {

// The time that the kernel takes grows faster than the facets; finer meshes would take hours.
constexpr double kFinestChord = 5e-3;
constexpr double kFinestAngle = 2;

Result<void> Check(const MeshTolerance& tolerance) {
  const bool isGood = tolerance.chord >= kFinestChord && tolerance.chord <= 1e6 &&
                      tolerance.angle >= kFinestAngle && tolerance.angle <= 90;
  if (isGood) return {};
  return Fault{"a mesh cannot have the tolerances " + NumberText(tolerance.chord) + " mm, " +
               NumberText(tolerance.angle) + " degrees; they are at least " + NumberText(kFinestChord) +
               " mm, " + NumberText(kFinestAngle) + " degrees"};
}

}  // namespace

Result<Mesh> MeshOf(const Body& body, const MeshTolerance& tolerance) {
  if (const auto checked = Check(tolerance); !checked) return checked.fault();
  return Guarded([&]() -> Result<Mesh> {
    const Shape& shape = body.shape();
    if (!shape.fromStl) Triangulate(shape.shape, tolerance);
    Mesh mesh = FacetsOf(shape.shape);
    if (mesh.triangles.empty()) return Fault{"the body has no faces"};
    return mesh;
  });
}

}  // namespace vanzet::modeller
