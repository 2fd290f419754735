#include "modeller/stl_bytes.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace vanzet::modeller {
namespace {

using geometry::Vector3d;

static_assert(std::endian::native == std::endian::little, "numbers are copied as they stand in memory");

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

}  // namespace

std::string StlBytes(const std::vector<Mesh>& meshes) {
  std::size_t count = 0;
  for (const Mesh& mesh : meshes) count += mesh.triangles.size();
  std::string bytes = "binary STL, millimetres";
  bytes.resize(kHeadBytes, ' ');
  bytes.reserve(kHeadBytes + sizeof(std::uint32_t) + kTriangleBytes * count);
  AppendBytes(bytes, static_cast<std::uint32_t>(count));
  for (const Mesh& mesh : meshes) {
    for (const auto& triangle : mesh.triangles) {
      const auto corner = [&](std::size_t i) { return mesh.points[static_cast<std::size_t>(triangle[i])]; };
      AppendTriangle(bytes, corner(0), corner(1), corner(2));
    }
  }
  return bytes;
}

}  // namespace vanzet::modeller
