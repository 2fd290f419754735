#include "modeller/answers.h"

#include <algorithm>
#include <cstdint>
#include <istream>
#include <ostream>
#include <type_traits>
#include <utility>

#include "modeller/body_size.h"

namespace vanzet::modeller {
namespace {

using geometry::Box3d;
using geometry::Point3d;
using Numbers = std::vector<double>;

constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 30U;

struct FactRow {
  std::string_view name;
  bool Foresight::*flag;
};
constexpr FactRow kFacts[] = {{"extents", &Foresight::extents},
                              {"measures", &Foresight::measures},
                              {"coarse", &Foresight::coarseMesh},
                              {"mesh", &Foresight::mesh}};

/// Writes a vector or a text.
template <class List>
void PackList(const List& list, std::ostream& bytes) {
  using Value = typename List::value_type;
  static_assert(std::is_trivially_copyable_v<Value>);
  const std::uint64_t length = list.size();
  bytes.write(reinterpret_cast<const char*>(&length), sizeof(length));
  bytes.write(reinterpret_cast<const char*>(list.data()),
              static_cast<std::streamsize>(length * sizeof(Value)));
}

void PackCount(std::size_t count, std::ostream& bytes) {
  PackList<std::vector<std::uint64_t>>({count}, bytes);
}

Fault Incomplete() {
  return Fault{"the exchange program gave an incomplete answer"};
}

template <class List>
Result<List> UnpackList(std::istream& bytes, std::uint64_t most) {
  using Value = typename List::value_type;
  std::uint64_t length = 0;
  if (!bytes.read(reinterpret_cast<char*>(&length), sizeof(length)) || length > most) return Incomplete();
  List list(length, Value{});
  bytes.read(reinterpret_cast<char*>(list.data()), static_cast<std::streamsize>(length * sizeof(Value)));
  if (!bytes) return Incomplete();
  return list;
}

Result<std::vector<double>> UnpackNumbers(std::istream& bytes, std::size_t count) {
  VANZET_TRY(auto numbers, UnpackList<Numbers>(bytes, count));
  if (numbers.size() != count) return Incomplete();
  return numbers;
}

Result<std::uint64_t> UnpackCount(std::istream& bytes) {
  VANZET_TRY(const auto count, UnpackList<std::vector<std::uint64_t>>(bytes, 1));
  if (count.empty()) return Incomplete();
  return count.front();
}

Result<std::string> UnpackText(std::istream& bytes) {
  return UnpackList<std::string>(bytes, kMostBytes);
}

Result<PackageProperty> UnpackProperty(std::istream& bytes) {
  PackageProperty property;
  VANZET_TRY(const auto names, UnpackCount(bytes));
  for (std::uint64_t i = 0; i < names; ++i) {
    VANZET_TRY(auto name, UnpackText(bytes));
    property.names.push_back(std::move(name));
  }
  if (property.names.empty()) return Incomplete();
  VANZET_TRY(property.value, UnpackText(bytes));
  VANZET_TRY(property.unit, UnpackText(bytes));
  return property;
}

Result<PackageItem> UnpackItem(std::istream& bytes) {
  PackageItem item;
  for (std::string* const text : {&item.file, &item.maker, &item.order, &item.name}) {
    VANZET_TRY(*text, UnpackText(bytes));
  }
  VANZET_TRY(const auto count, UnpackCount(bytes));
  for (std::uint64_t i = 0; i < count; ++i) {
    VANZET_TRY(auto property, UnpackProperty(bytes));
    item.properties.push_back(std::move(property));
  }
  return item;
}

}  // namespace

void Pack(const ReadBody& body, std::ostream& bytes) {
  PackList(body.surfaces, bytes);
  if (body.facets) {
    Pack(*body.facets, bytes);
  } else {
    PackList<Numbers>({static_cast<double>(body.roots)}, bytes);
  }
}

void Pack(const std::vector<NamedMesh>& meshes, std::ostream& bytes) {
  PackCount(meshes.size(), bytes);
  for (const NamedMesh& named : meshes) {
    PackList(named.name, bytes);
    Pack(named.mesh, bytes);
  }
}

void Pack(const Mesh& mesh, std::ostream& bytes) {
  PackList(mesh.points, bytes);
  PackList(mesh.triangles, bytes);
}

void Pack(const Box3d& box, std::ostream& bytes) {
  PackList<Numbers>({box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z}, bytes);
}

void Pack(const Measures& measures, std::ostream& bytes) {
  const Point3d& centroid = measures.centroid;
  PackList<Numbers>(
      {measures.volume, measures.area, centroid.x, centroid.y, centroid.z, measures.closed ? 1.0 : 0.0},
      bytes);
}

void Pack(const FileDescription& description, std::ostream& bytes) {
  PackList(description.unit, bytes);
  const auto parts = static_cast<double>(description.parts.size());
  const auto places = static_cast<double>(description.places.size());
  PackList<Numbers>({description.hasSurfaces ? 1.0 : 0.0, description.round ? 1.0 : 0.0, parts, places},
                    bytes);
  for (const PartDescription& part : description.parts) {
    PackList(part.name, bytes);
    PackList<Numbers>({part.isSolid ? 1.0 : 0.0}, bytes);
    Pack(part.box, bytes);
    Pack(part.measures, bytes);
  }
  for (const NamedPlace& place : description.places) {
    const auto& [name, origin, axis, upwards] = place;
    PackList(name, bytes);
    PackList<Numbers>(
        {origin.x, origin.y, origin.z, axis.dx, axis.dy, axis.dz, upwards.dx, upwards.dy, upwards.dz}, bytes);
  }
  if (!description.round) return;
  const auto& [axis, radius] = *description.round;
  const auto& [origin, direction] = axis;
  PackList<Numbers>({origin.x, origin.y, origin.z, direction.dx, direction.dy, direction.dz, radius}, bytes);
}

void Pack(const DevicePackage& package, std::ostream& bytes) {
  PackCount(package.items.size(), bytes);
  for (const PackageItem& item : package.items) {
    for (const std::string* const text : {&item.file, &item.maker, &item.order, &item.name}) {
      PackList(*text, bytes);
    }
    PackCount(item.properties.size(), bytes);
    for (const PackageProperty& property : item.properties) {
      PackCount(property.names.size(), bytes);
      for (const std::string& name : property.names) PackList(name, bytes);
      PackList(property.value, bytes);
      PackList(property.unit, bytes);
    }
  }
  PackCount(package.models.size(), bytes);
  for (const PackageModel& model : package.models) {
    PackList(model.file, bytes);
    PackList(model.step, bytes);
  }
}

std::string WordOf(const Foresight& foresight) {
  std::string word;
  for (const auto& [name, flag] : kFacts) {
    if (foresight.*flag) word += (word.empty() ? "" : ",") + std::string(name);
  }
  return word;
}

Foresight ForesightOf(const std::string& word) {
  Foresight foresight;
  for (const auto& [name, flag] : kFacts) foresight.*flag = word.find(name) != std::string::npos;
  return foresight;
}

KnownFacts UnpackFacts(const Foresight& foresight, std::istream& bytes) {
  const auto take = [&](bool isThere, auto unpack, auto& fact) {
    if (!isThere) return;
    if (auto unpacked = unpack(bytes)) fact = std::move(*unpacked);
  };
  KnownFacts facts;
  take(foresight.extents, UnpackBox, facts.box);
  take(foresight.measures, UnpackMeasures, facts.measures);
  take(foresight.coarseMesh, UnpackMesh, facts.mesh);
  take(foresight.mesh, UnpackMesh, facts.mesh);
  return facts;
}

Result<ReadBody> UnpackReadBody(std::istream& bytes) {
  ReadBody body;
  VANZET_TRY(body.surfaces, UnpackList<std::string>(bytes, kMostBytes));
  if (!body.surfaces.empty()) {
    VANZET_TRY(const auto roots, UnpackNumbers(bytes, 1));
    body.roots = static_cast<int>(std::clamp(roots[0], 1.0, 1e6));
    return body;
  }
  VANZET_TRY(auto facets, UnpackMesh(bytes));
  body.facets = std::move(facets);
  return body;
}

Result<std::vector<NamedMesh>> UnpackMeshes(std::istream& bytes) {
  VANZET_TRY(const auto count, UnpackCount(bytes));
  std::vector<NamedMesh> meshes;
  for (std::uint64_t i = 0; i < count; ++i) {
    NamedMesh& named = meshes.emplace_back();
    VANZET_TRY(named.name, UnpackList<std::string>(bytes, kMostBytes));
    VANZET_TRY(named.mesh, UnpackMesh(bytes));
  }
  return meshes;
}

Result<Mesh> UnpackMesh(std::istream& bytes) {
  Mesh mesh;
  VANZET_TRY(mesh.points, UnpackList<std::vector<Point3d>>(bytes, 3 * kMostFacets));
  VANZET_TRY(mesh.triangles, UnpackList<std::vector<std::array<int, 3>>>(bytes, kMostFacets));
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

Result<FileDescription> UnpackDescription(std::istream& bytes) {
  FileDescription description;
  VANZET_TRY(description.unit, UnpackList<std::string>(bytes, kMostBytes));
  VANZET_TRY(const auto head, UnpackNumbers(bytes, 4));
  description.hasSurfaces = head[0] != 0;
  for (double i = 0; i < head[2]; ++i) {
    PartDescription& part = description.parts.emplace_back();
    VANZET_TRY(part.name, UnpackList<std::string>(bytes, kMostBytes));
    VANZET_TRY(const auto isSolid, UnpackNumbers(bytes, 1));
    part.isSolid = isSolid[0] != 0;
    VANZET_TRY(part.box, UnpackBox(bytes));
    VANZET_TRY(part.measures, UnpackMeasures(bytes));
  }
  for (double i = 0; i < head[3]; ++i) {
    NamedPlace& place = description.places.emplace_back();
    VANZET_TRY(place.name, UnpackList<std::string>(bytes, kMostBytes));
    VANZET_TRY(const auto n, UnpackNumbers(bytes, 9));
    place.origin = {n[0], n[1], n[2]};
    place.axis = {n[3], n[4], n[5]};
    place.upwards = {n[6], n[7], n[8]};
  }
  if (head[1] == 0) return description;
  VANZET_TRY(const auto n, UnpackNumbers(bytes, 7));
  description.round = RoundAxis{{{n[0], n[1], n[2]}, {n[3], n[4], n[5]}}, n[6]};
  return description;
}

Result<DevicePackage> UnpackPackage(std::istream& bytes) {
  DevicePackage package;
  VANZET_TRY(const auto items, UnpackCount(bytes));
  for (std::uint64_t i = 0; i < items; ++i) {
    VANZET_TRY(auto item, UnpackItem(bytes));
    package.items.push_back(std::move(item));
  }
  if (package.items.empty()) return Incomplete();
  VANZET_TRY(const auto models, UnpackCount(bytes));
  for (std::uint64_t i = 0; i < models; ++i) {
    PackageModel& model = package.models.emplace_back();
    VANZET_TRY(model.file, UnpackText(bytes));
    VANZET_TRY(model.step, UnpackText(bytes));
  }
  return package;
}

Result<Measures> UnpackMeasures(std::istream& bytes) {
  VANZET_TRY(const auto n, UnpackNumbers(bytes, 6));
  return Measures{n[0], n[1], {n[2], n[3], n[4]}, n[5] != 0};
}

}  // namespace vanzet::modeller
