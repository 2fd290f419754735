#include "simulation/device_contours.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "devices/kinds.h"
#include "host/host_functions.h"
#include "macro/command_text.h"
#include "macro/device_contour.h"
#include "simulation/device_operations.h"
#include "store/d2t_text.h"

namespace vanzet {
namespace {

using host::hostFunctions;

/// No outline has more: a host that gives more has lost count, and would be asked without end.
constexpr std::int32_t kMostVertices = 1'000'000;

constexpr std::int32_t kOutlineSection = 1;
constexpr std::int32_t kD2tSection = 2;

/// A contour that the host has opened for reading. It is closed at the latest with the object.
class KurveReading {
 public:
  explicit KurveReading(std::int32_t handle) : handle_(handle) {}
  ~KurveReading() {
    try {
      Close();
    } catch (...) {  // a contour that was read has nothing to lose
    }
  }
  KurveReading(const KurveReading&) = delete;
  KurveReading& operator=(const KurveReading&) = delete;

  bool IsOpen() const { return handle_ >= 1; }
  std::int32_t handle() const { return handle_; }

  void Close() {
    if (IsOpen()) hostFunctions.OrvoVdmClose(std::exchange(handle_, 0));
  }

 private:
  std::int32_t handle_;
};

/// A vertex as the host's raw store of a contour holds it, in two reads.
struct RawVertex {
  std::int32_t unused;
  std::int32_t word;
  double x, y;
  double centreX, centreY;
};
constexpr std::int32_t kFirstRead = 8;
constexpr std::int32_t kSecondRead = 32;
static_assert(sizeof(RawVertex) == kFirstRead + kSecondRead);

/// The next vertex; nothing when the host has written nothing: it is at its end, whatever it says.
std::optional<RawVertex> ReadVertex(std::int32_t handle) {
  std::array<unsigned char, sizeof(RawVertex)> bytes;
  bytes.fill(0xFF);
  const auto untouched = bytes;
  hostFunctions.OrvoVdmRead(handle, bytes.data(), kFirstRead);
  hostFunctions.OrvoVdmRead(handle, bytes.data() + kFirstRead, kSecondRead);
  if (bytes == untouched) return std::nullopt;
  return std::bit_cast<RawVertex>(bytes);
}

std::string SpanLine(const RawVertex& vertex) {
  const std::string centre = macro::FormatReal(vertex.centreX);
  return macro::FormatInt(vertex.word) + " " + macro::FormatReal(vertex.x) + " " +
         macro::FormatReal(vertex.y) + " " + centre + " " + centre + " 0";
}

/// Goes to the first vertex, also after the last one was read. The matrix before it is not used.
void Rewind(std::int32_t handle) {
  std::array<double, 16> matrix = {};
  hostFunctions.OrvoVdmReadTmx(handle, matrix.data());
}

template <class Take>
void ForEachVertex(std::int32_t handle, Take take) {
  Rewind(handle);
  for (std::int32_t i = 0; i < kMostVertices && hostFunctions.OrvoVdmEoi(handle) == 0; ++i) {
    const std::optional<RawVertex> vertex = ReadVertex(handle);
    if (!vertex) return;
    take(*vertex);
  }
}

void CopyOutline(BilletVdm& definition, std::int32_t kurveNumber) {
  KurveReading contour(hostFunctions.OrvoVdmOpen(kurveNumber, 1, 2));
  if (!contour.IsOpen()) return;
  // The first pass has no outcome; it belongs to the order of calls that hosts expect.
  ForEachVertex(contour.handle(), [](const RawVertex&) {});
  ForEachVertex(contour.handle(),
                [&definition](const RawVertex& vertex) { definition.ItemAdd(SpanLine(vertex)); });
  contour.Close();
}

/// A walk over the vertices of a contour of the host.
class Vertices {
 public:
  explicit Vertices(std::int32_t handle) : handle_(handle) {}

  /// The step to the next vertex; nothing when the host gives none. The step to the first one has no code; an
  /// unknown direction has the code of the step before it.
  std::optional<D2tElement> Next() {
    constexpr double kUntouched = std::numeric_limits<double>::quiet_NaN();
    double x = kUntouched, y = kUntouched, z = 0, centreX = 0, centreY = 0;
    std::int32_t direction = 0;
    hostFunctions.OrvoGetSpn(&x, &y, &z, &centreX, &centreY, &direction, handle_);
    if (std::isnan(x) && std::isnan(y)) return std::nullopt;
    gCode_ = isFirst_ ? 0 : GCodeOf(direction);
    isFirst_ = false;
    // The radius is taken from the end point; the host is not asked for it.
    return D2tElement{gCode_, x, y, std::sqrt((x - centreX) * (x - centreX) + (y - centreY) * (y - centreY))};
  }

 private:
  std::int32_t GCodeOf(std::int32_t direction) const {
    switch (direction) {
      case -1: return 2;
      case 0: return 1;
      case 1: return 3;
      default: return gCode_;
    }
  }

  std::int32_t handle_;
  std::int32_t gCode_ = 0;
  bool isFirst_ = true;
};

void StoreContour(BilletVdm& definition) {
  const std::int32_t spans = std::min(hostFunctions.OrvoFindNoOfSpansFromKurveNo(kJawContour), kMostVertices);
  if (spans < 1) return;
  KurveReading contour(hostFunctions.OrvoVdmExist(kJawContour, 1, 33, 2));
  if (!contour.IsOpen()) return;
  for (const std::string_view line : D2tHead()) definition.ItemAdd(std::string(line));
  Vertices vertices(contour.handle());
  for (std::int64_t i = 0; i <= spans; ++i) {
    const std::optional<D2tElement> element = vertices.Next();
    if (!element) break;
    definition.ItemAdd(D2tLine(*element, i == 0, i == spans));
  }
  contour.Close();
}

}  // namespace

bool StoreKurveGeometry(BilletVdm& definition, bool isSub, std::int32_t type, std::int32_t kurveNumber) {
  const auto* const operations = simulation::OperationsOf(type, true);
  if (operations == nullptr || !definition.OperationSelect(operations->Outline(isSub))) return false;
  definition.SectionRewrite(kOutlineSection);
  CopyOutline(definition, kurveNumber);
  definition.SectionCommit();
  return true;
}

bool StoreJawD2t(BilletVdm& definition, bool isSub) {
  const auto* const operations = simulation::OperationsOf(devices::kJaw.First(), true);
  if (!definition.OperationSelect(operations->Vrml(isSub))) return false;
  definition.SectionRewrite(kD2tSection);
  StoreContour(definition);
  definition.SectionCommit();
  return true;
}

}  // namespace vanzet
