#include "simulation/kurve_geometry.h"

#include <array>
#include <bit>
#include <optional>
#include <string>

#include "host/host_functions.h"
#include "macro/command_text.h"
#include "simulation/device_operations.h"
#include "simulation/kurve_reading.h"

namespace vanzet {
namespace {

using host::hostFunctions;

constexpr std::int32_t kOutlineSection = 1;

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

/// The next vertex; nothing when the host has put nothing there: it is at its end, whatever it says.
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

/// Stands on the first vertex, also after the last one was read. The matrix before it plays no part.
void Rewind(std::int32_t handle) {
  std::array<double, 16> matrix = {};
  hostFunctions.OrvoVdmReadTmx(handle, matrix.data());
}

template <class Take>
void ForEachVertex(std::int32_t handle, Take take) {
  Rewind(handle);
  while (hostFunctions.OrvoVdmEoi(handle) == 0) {
    const std::optional<RawVertex> vertex = ReadVertex(handle);
    if (!vertex) return;
    take(*vertex);
  }
}

void CopyOutline(BilletVdm& definition, std::int32_t kurveNumber) {
  simulation::KurveReading contour(hostFunctions.OrvoVdmOpen(kurveNumber, 1, 2));
  if (!contour.IsOpen()) return;
  // The first pass has no outcome; it belongs to the order of calls that hosts expect.
  ForEachVertex(contour.handle(), [](const RawVertex&) {});
  ForEachVertex(contour.handle(),
                [&definition](const RawVertex& vertex) { definition.ItemAdd(SpanLine(vertex)); });
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

}  // namespace vanzet
