#include "modeller/answers.h"

#include <algorithm>
#include <cstdint>
#include <istream>
#include <ostream>
#include <type_traits>

#include "modeller/body_size.h"

namespace vanzet::modeller {
namespace {

using geometry::Box3d;
using geometry::Point3d;

template <class Value>
void PackList(const std::vector<Value>& list, std::ostream& bytes) {
  static_assert(std::is_trivially_copyable_v<Value>);
  const std::uint64_t length = list.size();
  bytes.write(reinterpret_cast<const char*>(&length), sizeof(length));
  bytes.write(reinterpret_cast<const char*>(list.data()),
              static_cast<std::streamsize>(length * sizeof(Value)));
}

Fault Incomplete() {
  return Fault{"the exchange program gave an incomplete answer"};
}

template <class Value>
Result<std::vector<Value>> UnpackList(std::istream& bytes, std::uint64_t most) {
  std::uint64_t length = 0;
  if (!bytes.read(reinterpret_cast<char*>(&length), sizeof(length)) || length > most) return Incomplete();
  std::vector<Value> list(length);
  bytes.read(reinterpret_cast<char*>(list.data()), static_cast<std::streamsize>(length * sizeof(Value)));
  if (!bytes) return Incomplete();
  return list;
}

Result<std::vector<double>> UnpackNumbers(std::istream& bytes, std::size_t count) {
  VANZET_TRY(auto numbers, UnpackList<double>(bytes, count));
  if (numbers.size() != count) return Incomplete();
  return numbers;
}

}  // namespace

void Pack(const Mesh& mesh, std::ostream& bytes) {
  PackList(mesh.points, bytes);
  PackList(mesh.triangles, bytes);
}

void Pack(const Box3d& box, std::ostream& bytes) {
  PackList<double>({box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z}, bytes);
}

void Pack(const Measures& measures, std::ostream& bytes) {
  const Point3d& centroid = measures.centroid;
  PackList<double>(
      {measures.volume, measures.area, centroid.x, centroid.y, centroid.z, measures.closed ? 1.0 : 0.0},
      bytes);
}

Result<Mesh> UnpackMesh(std::istream& bytes) {
  Mesh mesh;
  VANZET_TRY(mesh.points, UnpackList<Point3d>(bytes, 3 * kMostFacets));
  VANZET_TRY(mesh.triangles, UnpackList<std::array<int, 3>>(bytes, kMostFacets));
  const int end = static_cast<int>(mesh.points.size());
  for (const auto& triangle : mesh.triangles) {
    const bool isThere =
        std::ranges::all_of(triangle, [&](int corner) { return corner >= 0 && corner < end; });
    if (!isThere) return Incomplete();
  }
  return mesh;
}

Result<Box3d> UnpackBox(std::istream& bytes) {
  VANZET_TRY(const auto n, UnpackNumbers(bytes, 6));
  return Box3d({n[0], n[1], n[2]}, {n[3], n[4], n[5]});
}

Result<Measures> UnpackMeasures(std::istream& bytes) {
  VANZET_TRY(const auto n, UnpackNumbers(bytes, 6));
  return Measures{n[0], n[1], {n[2], n[3], n[4]}, n[5] != 0};
}

}  // namespace vanzet::modeller
