#include "simulation/jaw_d2t.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "devices/kinds.h"
#include "host/host_functions.h"
#include "macro/device_contour.h"
#include "simulation/device_operations.h"
#include "simulation/kurve_reading.h"
#include "store/d2t_text.h"

namespace vanzet {
namespace {

using host::hostFunctions;

constexpr std::int32_t kD2tSection = 2;

/// A walk over the vertices of a contour of the host.
class Vertices {
 public:
  explicit Vertices(std::int32_t handle) : handle_(handle) {}

  /// The step to the next vertex; nothing when the host gives none. The way to the first one has no code; a
  /// direction that nobody knows goes on as the step before it.
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
  const std::int32_t spans = hostFunctions.OrvoFindNoOfSpansFromKurveNo(kJawContour);
  if (spans < 1) return;
  simulation::KurveReading contour(hostFunctions.OrvoVdmExist(kJawContour, 1, 33, 2));
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

bool StoreJawD2t(BilletVdm& definition, bool isSub) {
  const auto* const operations = simulation::OperationsOf(devices::kJaw.First(), true);
  if (!definition.OperationSelect(operations->Vrml(isSub))) return false;
  definition.SectionRewrite(kD2tSection);
  StoreContour(definition);
  definition.SectionCommit();
  return true;
}

}  // namespace vanzet
