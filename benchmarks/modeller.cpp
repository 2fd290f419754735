// What a body costs on its way from an outline to the simulation: spinning a mandrel, meshing it, writing its
// facets; and what 100 000 facets cost.

#include <benchmark/benchmark.h>

#include <string>

#include "devices/outline.h"
#include "geometry/kurve.h"
#include "geometry/units.h"
#include "modeller/export.h"
#include "modeller/mesh_files.h"
#include "modeller/sweep.h"
#include "support.h"

namespace {

using namespace vanzet;
using namespace vanzet::benchmarks;

const DeviceParams kMandrel = {
    .type = 3, .A = 40, .B = 120, .C = 20, .D = 40, .E = 60, .F = 15, .G = 20, .H = 30};
const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};
constexpr modeller::MeshTolerance kUsual;
constexpr modeller::MeshTolerance kFine = {0.01, 2};

geometry::Kurve MandrelContour() {
  geometry::SetUnits(0);
  const auto outline = OutlineOf(kMandrel);
  geometry::Kurve contour;
  for (const OutlineVertex& vertex : outline) contour.Add(geometry::Point(vertex.x, vertex.y));
  contour.Add(geometry::Point(outline.front().x, outline.front().y));
  return contour;
}

modeller::Body Mandrel() {
  return Get(modeller::Spin(MandrelContour(), kSpindle, 360));
}

/// A ball of radius 100, which at a fine tolerance has many facets.
modeller::Body Ball() {
  geometry::SetUnits(0);
  geometry::Kurve half;
  half.Add(geometry::Point(-100, 0));
  half.Add(geometry::Point(100, 0));
  half.Add(geometry::ACW, geometry::Point(-100, 0), geometry::Point(0, 0));
  return Get(modeller::Spin(half, kSpindle, 360));
}

void SpinAMandrel(benchmark::State& state) {
  const geometry::Kurve contour = MandrelContour();
  for (auto _ : state) benchmark::DoNotOptimize(Get(modeller::Spin(contour, kSpindle, 360)));
}

void MeshAMandrel(benchmark::State& state) {
  const modeller::Body mandrel = Mandrel();
  std::size_t triangles = 0;
  for (auto _ : state) triangles = Get(modeller::MeshOf(mandrel, kUsual)).triangles.size();
  state.counters["triangles"] = static_cast<double>(triangles);
}

void OutlineToVrml(benchmark::State& state) {
  const Folder folder;
  const geometry::Kurve contour = MandrelContour();
  for (auto _ : state) {
    Check(modeller::ExportVrml(Get(modeller::Spin(contour, kSpindle, 360)), folder.path / "tmpclamp.wrl",
                               kUsual));
  }
}

void MeshManyFacets(benchmark::State& state) {
  const modeller::Body ball = Ball();
  std::size_t triangles = 0;
  for (auto _ : state) triangles = Get(modeller::MeshOf(ball, kFine)).triangles.size();
  state.counters["triangles"] = static_cast<double>(triangles);
}

/// What is done with a mesh: the bytes of a file, from facets that are there.
template <class Writer>
void WriteManyFacets(benchmark::State& state, Writer writer) {
  static const std::vector<modeller::Mesh> meshes = {Get(modeller::MeshOf(Ball(), kFine))};
  std::size_t bytes = 0;
  for (auto _ : state) bytes = writer(meshes).size();
  state.counters["bytes"] = static_cast<double>(bytes);
}

BENCHMARK(SpinAMandrel)->Unit(benchmark::kMillisecond);
BENCHMARK(MeshAMandrel)->Unit(benchmark::kMillisecond);
BENCHMARK(OutlineToVrml)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(MeshManyFacets)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(WriteManyFacets, vrml, [](const auto& meshes) {
  return modeller::VrmlShape(meshes.front(), {});
}) -> Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteManyFacets, stl, [](const auto& meshes) { return modeller::StlBytes(meshes, {0}); })
    -> Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
