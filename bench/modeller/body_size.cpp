#include "modeller/body_size.h"

#include <BRep_Tool.hxx>
#include <Poly_Triangulation.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_TShape.hxx>
#include <algorithm>
#include <string>
#include <unordered_map>

namespace vanzet::modeller {
namespace {

struct Size {
  std::uint64_t faces = 0;
  std::uint64_t facets = 0;
  std::uint64_t parts = 1;
  int levels = 1;
};

/// Sums stay far below the largest number, however often they are added again.
constexpr std::uint64_t kPlenty = std::uint64_t{1} << 40;

std::uint64_t Sum(std::uint64_t a, std::uint64_t b) {
  return std::min(a + b, kPlenty);
}

Fault MoreThan(std::uint64_t most, const std::string& what) {
  return Fault{"has more than " + std::to_string(most) + " " + what};
}

Fault TooDeep() {
  return Fault{"has groups within groups, more than " + std::to_string(kMostLevels) + " levels deep"};
}

std::uint64_t FacetsIn(const TopoDS_Shape& face) {
  TopLoc_Location place;
  const auto triangulation = BRep_Tool::Triangulation(TopoDS::Face(face), place);
  return triangulation.IsNull() ? 0 : static_cast<std::uint64_t>(triangulation->NbTriangles());
}

/// Counts each part once and remembers the count for its other uses.
class Counter {
 public:
  Result<Size> Count(const TopoDS_Shape& shape, int level) {
    if (level > kMostLevels) return TooDeep();
    const auto known = known_.find(shape.TShape().get());
    if (known != known_.end()) return known->second;
    Size size;
    if (shape.ShapeType() == TopAbs_FACE) size = {.faces = 1, .facets = FacetsIn(shape)};
    for (TopoDS_Iterator child(shape, Standard_False, Standard_False); child.More(); child.Next()) {
      VANZET_TRY(const Size part, Count(child.Value(), level + 1));
      size = {Sum(size.faces, part.faces), Sum(size.facets, part.facets), Sum(size.parts, part.parts),
              std::max(size.levels, part.levels + 1)};
    }
    known_.emplace(shape.TShape().get(), size);
    return size;
  }

 private:
  std::unordered_map<const TopoDS_TShape*, Size> known_;
};

}  // namespace

Result<std::uint64_t> CountFaces(const TopoDS_Shape& shape) {
  if (shape.IsNull()) return std::uint64_t{0};
  VANZET_TRY(const Size size, Counter().Count(shape, 1));
  if (size.levels > kMostLevels) return TooDeep();
  if (size.faces > kMostFaces) return MoreThan(kMostFaces, "faces");
  if (size.facets > kMostFacets) return MoreThan(kMostFacets, "facets");
  if (size.parts > kMostParts) return MoreThan(kMostParts, "faces, edges, points and groups");
  return size.faces;
}

}  // namespace vanzet::modeller
