#pragma once

#include <cmath>
#include <fstream>
#include <string>

#include "modeller/mesh.h"

/// Shared by the benchmarks of what is drawn: a body with very many facets, and the memory that it takes.
namespace vanzet::benchmarks {

/// A ball with waves, of nearly `facets` triangles.
inline modeller::Mesh Ball(int facets) {
  const int rings = static_cast<int>(std::sqrt(facets / 4.0)), around = 2 * rings;
  modeller::Mesh mesh;
  for (int ring = 0; ring <= rings; ++ring) {
    for (int i = 0; i < around; ++i) {
      const double high = M_PI * ring / rings, wide = 2 * M_PI * i / around;
      const double radius = 100 + 3 * std::sin(20 * wide) * std::sin(high) * std::sin(20 * high);
      mesh.points.emplace_back(radius * std::cos(high), radius * std::sin(high) * std::cos(wide),
                               radius * std::sin(high) * std::sin(wide));
    }
  }
  for (int ring = 0; ring < rings; ++ring) {
    for (int i = 0; i < around; ++i) {
      const int a = ring * around + i, b = ring * around + (i + 1) % around;
      mesh.triangles.push_back({a, a + around, b});
      mesh.triangles.push_back({b, a + around, b + around});
    }
  }
  return mesh;
}

/// The most memory that this process had so far.
inline double PeakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmHWM:") continue;
    double kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1024;
  }
  return 0;
}

}  // namespace vanzet::benchmarks
