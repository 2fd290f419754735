// The check of a set-up after its scene is there: of parametric devices, and with a casting of 5,000 faces;
// and of many spurs at a time over all processors.

#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>

#include "check/check.h"
#include "check/parallel.h"
#include "contour/library.h"
#include "modeller/sweep.h"
#include "support.h"

namespace {

using namespace vanzet;

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

scene::Spindle SpindleWithJaws() {
  scene::Spindle spindle;
  spindle.clamp = {"Chuck 160", {1, 80, 90, 22.5}};
  spindle.jaw = {"Soft jaw 160", {9, 38, 62, 12, 24}};
  spindle.billet = {.type = scene::billet_type::kCylinder,
                    .partLength = 100,
                    .outerDiameter = 42,
                    .frontAllowance = 2,
                    .clampDiameter = 42};
  spindle.finishPart = {.type = scene::finish_part_type::kFigures, .outside = "part"};
  spindle.clampingOut = 40;
  return spindle;
}

geometry::Kurve Rectangle(double fromX, double toX, double toY) {
  geometry::Kurve curve;
  curve.Start(geometry::Point(fromX, 0));
  for (const auto& [x, y] :
       {std::pair(toX, 0.0), std::pair(toX, toY), std::pair(fromX, toY), std::pair(fromX, 0.0)})
    curve.Add(geometry::Point(x, y));
  return curve;
}

/// A rod with 4,998 flat sides and two ends. Its waves reach 0.01 mm into the bore that holds it.
modeller::Body Casting() {
  constexpr int kSides = 4998;
  geometry::Kurve outline;
  const auto at = [](int side) {
    const double angle = 2 * std::numbers::pi * side / kSides;
    const double radius = 21.01 - 0.4 * (1 + std::cos(40 * angle));
    return geometry::Point(radius * std::cos(angle), radius * std::sin(angle));
  };
  outline.Start(at(0));
  for (int i = 1; i <= kSides; ++i) outline.Add(at(i % kSides));
  const auto rod = benchmarks::Get(modeller::Extrude(outline, 102));
  const auto moved = benchmarks::Get(modeller::MoveBody(rod, {0, 0, -100}));
  return benchmarks::Get(modeller::TurnBody(moved, {{0, 0, 0}, {0, 1, 0}}, 90));
}

struct Spur {
  scene::Equipment equipment;
  project::Definition definition;
  scene::Scene scene;
};

Spur Make(const scene::Equipment& equipment) {
  contour::UseMillimetres();
  Spur spur{equipment, {}, {}};
  spur.definition.version = project::kDefinitionVersion;
  const scene::Sources sources = {
      .figure = [](const std::string&) { return std::vector<geometry::Kurve>{Rectangle(-100, 0, 20)}; },
      .body = [](const std::string&) { return Casting(); },
      .exchange = {},
      .hasDevicesByValues = true};
  spur.scene = benchmarks::Get(scene::MakeScene(spur.equipment, spur.definition, sources));
  return spur;
}

std::size_t FindingsOf(const Spur& spur) {
  static const catalogue::Shop shop;
  return benchmarks::Get(check::Check({.spur = 0,
                                       .definition = spur.definition,
                                       .equipment = spur.equipment,
                                       .scene = spur.scene,
                                       .shop = shop}))
      .size();
}

scene::Equipment BothSpindles() {
  scene::Equipment equipment;
  equipment.spindles = {SpindleWithJaws(), SpindleWithJaws()};
  equipment.spindles[0].origin = 100;
  equipment.spindles[1].origin = 400;
  return equipment;
}

scene::Equipment WithCasting() {
  scene::Equipment equipment;
  equipment.spindles[0] = SpindleWithJaws();
  equipment.spindles[0].clamp = {"Collet D42", {2, 33, 94, 12, 21, 38, 2.5}};
  equipment.spindles[0].jaw = {};
  equipment.spindles[0].origin = 100;
  equipment.spindles[0].billet = {
      .type = scene::billet_type::kSolid, .partLength = 100, .clampDiameter = 42, .solid = "casting"};
  return equipment;
}

void Measure(benchmark::State& state, const scene::Equipment& equipment) {
  const Spur spur = Make(equipment);
  std::size_t found = 0;
  for (auto _ : state) found = FindingsOf(spur);
  state.counters["findings"] = static_cast<double>(found);
}

void ParametricDevices(benchmark::State& state) {
  Measure(state, BothSpindles());
}
BENCHMARK(ParametricDevices)->Unit(benchmark::kMillisecond);

void CastingOf5000Faces(benchmark::State& state) {
  Measure(state, WithCasting());
}
BENCHMARK(CastingOf5000Faces)->Unit(benchmark::kMillisecond);

void FiftySpurs(benchmark::State& state) {
  const Spur spur = Make(BothSpindles());
  const std::vector<Spur> spurs(50, spur);
  for (auto _ : state)
    check::ForEachInParallel(spurs.size(),
                             [&](std::size_t i) { benchmark::DoNotOptimize(FindingsOf(spurs[i])); });
}
BENCHMARK(FiftySpurs)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
