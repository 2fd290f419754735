#include "modeller/mesh_files.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "base/number_text.h"

namespace vanzet::modeller {
namespace {

using geometry::Vector3d;

bool IsNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

void AppendPoint(std::string& text, const geometry::Point3d& p) {
  constexpr int kDecimals = 6;
  text += ShortDecimalText(p.x, kDecimals);
  text += ' ';
  text += ShortDecimalText(p.y, kDecimals);
  text += ' ';
  text += ShortDecimalText(p.z, kDecimals);
}

std::string ColourText(const Colour& colour) {
  std::string text;
  AppendPoint(text, {colour.red, colour.green, colour.blue});
  return text;
}

static_assert(std::endian::native == std::endian::little, "numbers are copied as they are in memory");

constexpr std::size_t kHeadBytes = 80;
constexpr std::size_t kTriangleBytes = 50;

template <class Number>
void AppendBytes(std::string& bytes, Number number) {
  char copy[sizeof(Number)];
  std::memcpy(copy, &number, sizeof(Number));
  bytes.append(copy, sizeof(Number));
}

void AppendTriple(std::string& bytes, double x, double y, double z) {
  for (const double number : {x, y, z}) AppendBytes(bytes, static_cast<float>(number));
}

void AppendTriangle(std::string& bytes, const geometry::Point3d& a, const geometry::Point3d& b,
                    const geometry::Point3d& c) {
  Vector3d normal = Cross(Vector3d(a, b), Vector3d(a, c));
  const double length = normal.Magnitude();
  if (length > 0) normal = normal * (1 / length);
  AppendTriple(bytes, normal.dx, normal.dy, normal.dz);
  for (const auto& corner : {a, b, c}) AppendTriple(bytes, corner.x, corner.y, corner.z);
  AppendBytes(bytes, std::uint16_t{0});
}

// Readers of these texts go by lines: the one with "coord Coordinate", the one with "coordIndex", and the
// first after it with a closing bracket.
std::string ShapeText(const Mesh& mesh, const std::string& material, const std::string& faceSet) {
  std::string text = "Shape {\nappearance Appearance {\nmaterial Material {\n" + material +
                     "}\n}\ngeometry IndexedFaceSet {\nccw TRUE\nsolid FALSE\n" + faceSet +
                     "coord Coordinate {\npoint [\n";
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

}  // namespace

std::string VrmlShape(const Mesh& mesh, const Colour& colour) {
  return ShapeText(mesh, "diffuseColor " + ColourText(colour) + "\n", "");
}

std::string VrmlPicture(const Mesh& mesh, const Appearance& appearance) {
  std::string material = "diffuseColor " + ColourText(appearance.colour) + "\n";
  if (appearance.isSeenThrough) material += "transparency " + NumberText(kTransparency) + "\n";
  // Facets of a round surface meet at up to 10 degrees, edges of a device at 15 and more.
  return ShapeText(mesh, material, "creaseAngle 0.2\n");
}

std::string NamedVrmlNode(const std::string& name, std::size_t number, const std::string& shape) {
  std::string identifier = "Body" + std::to_string(number) + "_";
  for (const char c : name) identifier += IsNameCharacter(c) ? c : '_';
  return "DEF " + identifier + " Transform {\nchildren [\n" + shape + "]\n}\n";
}

void ObjText::Add(const std::string& name, const Mesh& mesh, const Colour& colour) {
  text_ += "o " + name + "\n";
  const std::string painted = " " + ColourText(colour) + "\n";
  for (const geometry::Point3d& point : mesh.points) {
    text_ += "v ";
    AppendPoint(text_, point);
    text_ += painted;
  }
  for (const auto& triangle : mesh.triangles) {
    text_ += 'f';
    for (const int corner : triangle) {
      text_ += " " + std::to_string(points_ + static_cast<std::size_t>(corner) + 1);
    }
    text_ += '\n';
  }
  points_ += mesh.points.size();
}

std::string StlBytes(const std::vector<Mesh>& meshes, const std::vector<std::size_t>& numbers) {
  std::size_t count = 0;
  for (const std::size_t number : numbers) count += meshes[number].triangles.size();
  std::string bytes = "binary STL, millimetres";
  bytes.resize(kHeadBytes, ' ');
  bytes.reserve(kHeadBytes + sizeof(std::uint32_t) + kTriangleBytes * count);
  AppendBytes(bytes, static_cast<std::uint32_t>(count));
  for (const std::size_t number : numbers) {
    const Mesh& mesh = meshes[number];
    for (const auto& triangle : mesh.triangles) {
      const auto corner = [&](std::size_t i) { return mesh.points[static_cast<std::size_t>(triangle[i])]; };
      AppendTriangle(bytes, corner(0), corner(1), corner(2));
    }
  }
  return bytes;
}

}  // namespace vanzet::modeller
