#include "modeller/export.h"

#include <algorithm>
#include <fstream>

#include "base/number_text.h"
#include "base/one_line.h"
#include "modeller/body.h"
#include "modeller/exchange_process.h"
#include "modeller/foreign.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/mesh_files.h"
#include "modeller/parcel.h"
#include "modeller/temporary_file.h"

namespace vanzet::modeller {
namespace {

using Bodies = std::vector<NamedBody>;

/// Moves each body to its placement; names and colours stay.
Result<Bodies> PlaceBodies(const Bodies& bodies) {
  Bodies placed;
  for (const NamedBody& named : bodies) {
    VANZET_TRY(auto body, PlaceBody(named.body, named.placement));
    placed.push_back({named.name, body, {}, named.appearance, named.places});
  }
  return placed;
}

Result<std::vector<Mesh>> MeshesOf(const Bodies& bodies, const MeshTolerance& tolerance) {
  std::vector<Mesh> meshes;
  for (const NamedBody& named : bodies) {
    auto mesh = MeshOf(named.body, tolerance);
    if (!mesh) return Fault{named.name + ": " + mesh.fault().text};
    meshes.push_back(std::move(*mesh));
  }
  return meshes;
}

std::string WrlText(const Bodies& bodies, const std::vector<Mesh>& meshes, const FileBodies& file) {
  std::string text(kVrmlHead);
  for (std::size_t i = 0; i < file.size(); ++i) {
    const NamedBody& body = bodies[file[i]];
    text += NamedVrmlNode(body.name, i + 1, VrmlPicture(meshes[file[i]], body.appearance));
  }
  return text;
}

std::string ObjContent(const Bodies& bodies, const std::vector<Mesh>& meshes, const FileBodies& file) {
  ObjText obj;
  for (const std::size_t i : file) obj.Add(OneLine(bodies[i].name), meshes[i], bodies[i].appearance.colour);
  return obj.text();
}

std::string StlContent(const Bodies&, const std::vector<Mesh>& meshes, const FileBodies& file) {
  return StlBytes(meshes, file);
}

/// A format of facets that needs nothing of Open CASCADE but the meshes.
struct MeshFormat {
  ExportFormat format;
  std::string (*contentOf)(const Bodies& bodies, const std::vector<Mesh>& meshes, const FileBodies& file);
};
constexpr MeshFormat kMeshFormats[] = {
    {ExportFormat::kStl, StlContent},
    {ExportFormat::kWrl, WrlText},
    {ExportFormat::kObj, ObjContent},
};

/// The files of a format of facets: each body is meshed once.
Result<void> MakeMeshFiles(const Bodies& bodies, const std::vector<FileBodies>& files,
                           const MeshFormat& format, const MeshTolerance& tolerance,
                           const TakeContent& take) {
  VANZET_TRY(const auto meshes, MeshesOf(bodies, tolerance));
  for (std::size_t i = 0; i < files.size(); ++i) {
    VANZET_DO(take(i, format.contentOf(bodies, meshes, files[i])));
  }
  return {};
}

Result<void> Pack(const Bodies& bodies, const MemoryFile& parcel) {
  return CatchKernelFailures([&]() -> Result<void> {
    std::vector<ParcelBody> packed;
    for (const NamedBody& named : bodies) {
      const Shape& shape = named.body.shape();
      const bool isForeign = IsForeign(shape);
      packed.push_back({named.name, named.appearance, shape.shape,
                        isForeign ? std::string_view(shape.origin->surfaces) : std::string_view(),
                        named.places});
    }
    std::ofstream bytes(parcel.Path(), std::ios::binary);
    PackParcel(packed, bytes);
    bytes.close();
    if (!bytes) return Fault{.text = "out of memory", .kind = FaultKind::kSystem};
    return {};
  });
}

/// The order of the exchange program that writes a format; exchange/main.cpp has them all.
std::string OrderToWrite(ExportFormat format) {
  switch (format) {
    case ExportFormat::kStep: return "write-step";
    case ExportFormat::kIges: return "write-iges";
    case ExportFormat::k3mf: return "write-3mf";
    default: return "write-gltf";
  }
}

/// The files of a format that the exchange program writes: it runs once for all of them.
Result<void> MakeFilesByExchange(const Bodies& bodies, const std::vector<FileBodies>& files,
                                 ExportFormat format, const FileOptions& options, const Exchange& exchange,
                                 const TakeContent& take) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  VANZET_DO(Pack(bodies, parcel));
  VANZET_TRY(const auto file, TemporaryFile::Make(EndingOf(format)));
  const std::vector<std::string> arguments = {OrderToWrite(format),
                                              std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes),
                                              file.path().string(),
                                              NumberText(options.fineness.chord),
                                              NumberText(options.fineness.angle),
                                              FilesWord(files),
                                              options.time};
  VANZET_DO(RunExchange(exchange, arguments, parcel));
  for (std::size_t i = 0; i < files.size(); ++i) {
    VANZET_TRY(const auto content, file.Content(i));
    VANZET_DO(take(i, content));
  }
  return {};
}

bool HasSurfacesIn(const NamedBody& body, ExportFormat format) {
  return HasSurfaces(format) && !body.body.IsStl();
}

}  // namespace

Result<BodyFacts> FactsOf(const NamedBody& body, ExportFormat format, const MeshTolerance& tolerance) {
  VANZET_TRY(const Body placed, PlaceBody(body.body, body.placement));
  VANZET_TRY(const Mesh mesh, MeshOf(placed, tolerance));
  BodyFacts facts;
  facts.triangles = mesh.triangles.size();
  Measures measures = MeasuresOf(mesh);
  if (HasSurfacesIn(body, format)) {
    VANZET_TRY(measures, MeasuresOf(placed));
    VANZET_TRY(facts.box, Extents(placed));
  } else {
    for (const geometry::Point3d& point : mesh.points) facts.box.Insert(point);
  }
  if (measures.closed) facts.volume = measures.volume;
  return facts;
}

Result<void> MakeFiles(const Bodies& bodies, const std::vector<FileBodies>& files, ExportFormat format,
                       const FileOptions& options, const Exchange& exchange, const TakeContent& take) {
  if (std::ranges::any_of(files, &FileBodies::empty)) return Fault{"no body to write"};
  VANZET_TRY(const auto placed, PlaceBodies(bodies));
  const auto* const meshFormat = std::ranges::find(kMeshFormats, format, &MeshFormat::format);
  if (meshFormat != std::end(kMeshFormats))
    return MakeMeshFiles(placed, files, *meshFormat, options.fineness, take);
  return MakeFilesByExchange(placed, files, format, options, exchange, take);
}

Result<std::string> VrmlOf(const Body& body, const MeshTolerance& tolerance) {
  VANZET_TRY(const auto mesh, MeshOf(body, tolerance));
  return std::string(kVrmlHead) + VrmlShape(mesh, {});
}

}  // namespace vanzet::modeller
