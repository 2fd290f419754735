#include "modeller/mesh_files.h"

#include "modeller/number_text.h"

namespace vanzet::modeller {
namespace {

bool IsNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

void AppendPoint(std::string& text, const geometry::Point3d& p) {
  AppendDecimals(text, p.x);
  text += ' ';
  AppendDecimals(text, p.y);
  text += ' ';
  AppendDecimals(text, p.z);
}

std::string ColourText(const Colour& colour) {
  std::string text;
  AppendPoint(text, {colour.red, colour.green, colour.blue});
  return text;
}

}  // namespace

// Readers of these texts go by lines: the one with "coord Coordinate", the one with "coordIndex", and the
// first behind it with a closing bracket.
std::string VrmlShape(const Mesh& mesh, const Colour& colour) {
  std::string text =
      "Shape {\nappearance Appearance {\nmaterial Material {\ndiffuseColor " + ColourText(colour) +
      "\n}\n}\ngeometry IndexedFaceSet {\nccw TRUE\nsolid FALSE\ncoord Coordinate {\npoint [\n";
  for (std::size_t i = 0; i < mesh.points.size(); ++i) {
    AppendPoint(text, mesh.points[i]);
    text += i + 1 < mesh.points.size() ? ",\n" : "\n";
  }
  text += "]\n}\ncoordIndex\n[\n";
  for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
    for (const int corner : mesh.triangles[i]) text += std::to_string(corner) + " ";
    text += i + 1 < mesh.triangles.size() ? "-1,\n" : "-1\n";
  }
  return text + "]\n}\n}\n";
}

std::string VrmlNamed(const std::string& name, std::size_t number, const std::string& shape) {
  std::string identifier = "Body" + std::to_string(number) + "_";
  for (const char c : name) identifier += IsNameCharacter(c) ? c : '_';
  return "DEF " + identifier + " Transform {\nchildren [\n" + shape + "]\n}\n";
}

}  // namespace vanzet::modeller
