#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "geometry/offset.h"
#include "offset_contours.h"
#include "offset_peer.h"

/// The costs of an offset, in nanoseconds of CPU time a span of the source, as a caller has them: memory
/// comes from the system as usual, and the result is freed within the measurement.
///
///   100 to 100,000  the least of many calls in one process, by number of spans
///   growth          100,000 beside 1,000
///   first           the first call of a process, at 100,000 spans: all memory is new
///   Open CASCADE    its planar offset, at 100 spans; it takes minutes at 10,000
///
/// Usage: geometry_offset_benchmark [KIND]. The output is a table for benchmarks/README.md.
namespace vanzet::benchmarks {
namespace {

using geometry::Kurve;

constexpr double kDistance = 1.5;  ///< mm
constexpr int kSizes[] = {100, 1000, 10000, 100000};
constexpr int kFirst = 100000;
constexpr int kPeer = 100;

double CpuNanoseconds() {
  timespec t = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

/// One call of an offset; true when it gave a result. The contour was made before.
using Call = std::function<bool()>;

struct Contour {
  KurveEx working;
  Kurve compact;
};

/// A way to make an offset of a contour, `left` to its left.
struct Method {
  const char* name;
  bool (*run)(const Contour& contour, double left);
};

bool OfKurveEx(const Contour& contour, double left) {
  KurveEx offset;
  return contour.working.Offset(offset, left, 1, 1, 0) == 0;
}

bool OfKurve(const Contour& contour, double left) {
  Kurve offset;
  return contour.compact.OffsetMethod1(offset, left, 1, 1) == 0;
}

constexpr Method kMethods[] = {{"KurveEx", OfKurveEx}, {"Kurve", OfKurve}};

Contour Make(const Kind& kind, int spans) {
  Contour contour;
  contour.working = kind.make(spans);
  contour.compact = Kurve(contour.working);
  return contour;
}

/// The least time of a call, over about a second. Short calls are measured many at a time.
double Least(const Call& call, int spans) {
  const int calls = std::max(1, 10000 / spans);
  double least = 1e300;
  double total = 0;
  for (int i = 0; i < 5 || (total < 5e8 && i < 1000); ++i) {
    const double begin = CpuNanoseconds();
    for (int k = 0; k < calls; ++k) {
      if (!call()) return -1;
    }
    const double time = CpuNanoseconds() - begin;
    least = std::min(least, time / calls);
    total += time;
  }
  return least / spans;
}

/// The time of the first call of a process, the least of several processes; -1 when there was none.
double First(const Kind& kind, const Method& method, double left) {
  double least = -1;
  for (int i = 0; i < 5; ++i) {
    int ends[2] = {};
    if (pipe(ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
      const Contour contour = Make(kind, kFirst);
      const double begin = CpuNanoseconds();
      const bool good = method.run(contour, left);
      const double time = good ? (CpuNanoseconds() - begin) / kFirst : -1;
      _exit(write(ends[1], &time, sizeof time) == sizeof time ? 0 : 1);
    }
    close(ends[1]);
    double time = -1;
    if (read(ends[0], &time, sizeof time) == sizeof time && time > 0)
      least = least < 0 ? time : std::min(least, time);
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
  }
  return least;
}

/// A number for the table; nothing for one that was not measured.
std::string Cell(double number, int decimals = 0) {
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return std::string(" ") + (number < 0 ? "" : text) + " |";
}

void PrintRow(const Kind& kind, const Method& method, bool inward) {
  // Left of an anticlockwise contour is its inside.
  const double left = inward ? kDistance : -kDistance;
  std::string row =
      std::string("| ") + kind.name + (inward ? " inward" : " outward") + " | " + method.name + " |";
  std::vector<double> times;
  const double first = First(kind, method, left);
  for (const int spans : kSizes) {
    const Contour contour = Make(kind, spans);
    times.push_back(Least([&] { return method.run(contour, left); }, spans));
    row += Cell(times.back());
  }
  row += Cell(times[3] / times[1], 2) + Cell(first);
  if (method.run == OfKurveEx) {
    const PeerContour peer(kind.make(kPeer));
    row += Cell(Least([&] { return peer.Offset(-left); }, kPeer));
  } else {
    row += "  |";
  }
  std::printf("%s\n", row.c_str());
  std::fflush(stdout);
}

}  // namespace
}  // namespace vanzet::benchmarks

int main(int argc, char** argv) {
  using namespace vanzet::benchmarks;
  geometry::SetUnits(0);
  std::printf("| Contour | Class | 100 | 1,000 | 10,000 | 100,000 | growth | first | Open CASCADE |\n");
  std::printf("|---|---|---|---|---|---|---|---|---|\n");
  for (const Kind& kind : kKinds) {
    if (argc > 1 && std::strcmp(argv[1], kind.name) != 0) continue;
    for (const Method& method : kMethods) {
      for (const bool inward : {true, false}) PrintRow(kind, method, inward);
    }
  }
}
