#include "modeller/vrml_facets.h"

#include <Standard_CLocaleSentry.hxx>
#include <VrmlData_Coordinate.hxx>
#include <VrmlData_Group.hxx>
#include <VrmlData_IndexedFaceSet.hxx>
#include <VrmlData_Scene.hxx>
#include <VrmlData_ShapeNode.hxx>
#include <sstream>
#include <stdexcept>

#include "base/numbers.h"

namespace vanzet::test {
namespace {

using modeller::Mesh;

/// The first facets below a list of nodes.
Handle(VrmlData_IndexedFaceSet) FacetsBelow(VrmlData_ListOfNode::Iterator nodes) {
  for (; nodes.More(); nodes.Next()) {
    if (const auto shape = Handle(VrmlData_ShapeNode)::DownCast(nodes.Value())) {
      return Handle(VrmlData_IndexedFaceSet)::DownCast(shape->Geometry());
    }
    const auto group = Handle(VrmlData_Group)::DownCast(nodes.Value());
    if (group.IsNull()) continue;
    if (const auto found = FacetsBelow(group->NodeIterator()); !found.IsNull()) return found;
  }
  return {};
}

/// The numbers of a line; commas are blanks.
std::vector<double> NumbersOf(std::string line) {
  for (char& c : line) c = c == ',' ? ' ' : c;
  std::vector<double> numbers;
  for (std::string_view rest = line; const auto number = RealPrefix(rest);) {
    numbers.push_back(number->value);
    rest.remove_prefix(number->used);
  }
  return numbers;
}

}  // namespace

Mesh ReadVrml(const std::string& text) {
  // The reader goes by the locale.
  const Standard_CLocaleSentry point;
  std::istringstream stream(text);
  VrmlData_Scene scene;
  scene << stream;
  if (scene.Status() != VrmlData_StatusOK) throw std::runtime_error("the reader refuses the text");
  const auto facets = FacetsBelow(scene.GetIterator());
  if (facets.IsNull()) throw std::runtime_error("there is no IndexedFaceSet");
  Mesh mesh;
  for (std::size_t i = 0; i < facets->Coordinates()->Length(); ++i) {
    const gp_XYZ& p = facets->Coordinates()->Coordinate(static_cast<int>(i));
    mesh.points.emplace_back(p.X(), p.Y(), p.Z());
  }
  const Standard_Integer** polygons = nullptr;
  for (std::size_t i = 0; i < facets->Polygons(polygons); ++i) {
    const Standard_Integer* corners = nullptr;
    if (facets->Polygon(static_cast<int>(i), corners) != 3) throw std::runtime_error("a face is no triangle");
    mesh.triangles.push_back({corners[0], corners[1], corners[2]});
  }
  return mesh;
}

Mesh ReadByLines(const std::string& text) {
  enum class Stage { kHead, kPoints, kFaces, kTail } stage = Stage::kHead;
  Mesh mesh;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const auto has = [&](const char* word) { return line.find(word) != std::string::npos; };
    if (stage == Stage::kFaces && has("]")) stage = Stage::kTail;
    const auto numbers = NumbersOf(line);
    if (stage == Stage::kPoints && numbers.size() == 3)
      mesh.points.emplace_back(numbers[0], numbers[1], numbers[2]);
    if (stage == Stage::kFaces && numbers.size() == 4) {
      mesh.triangles.push_back(
          {static_cast<int>(numbers[0]), static_cast<int>(numbers[1]), static_cast<int>(numbers[2])});
    }
    if (stage == Stage::kHead && has("coord Coordinate")) stage = Stage::kPoints;
    if (stage == Stage::kPoints && has("coordIndex")) stage = Stage::kFaces;
  }
  if (stage != Stage::kTail) throw std::runtime_error("the text ends early");
  return mesh;
}

}  // namespace vanzet::test
