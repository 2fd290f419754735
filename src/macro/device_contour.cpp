#include "macro/device_contour.h"

#include <optional>
#include <string>
#include <string_view>

#include "devices/device_contour_lines.h"
#include "devices/formula.h"
#include "host/bridge.h"
#include "macro/command_text.h"

namespace vanzet {
namespace {

/// What stands in a template's braces.
std::string Expanded(std::string_view expression, const DeviceParams& params, std::int32_t contour) {
  if (expression == "n") return macro::FormatInt(contour);
  return macro::FormatReal(Evaluate(expression, params));
}

std::string LineFrom(std::string_view lineTemplate, const DeviceParams& params, std::int32_t contour) {
  std::string line;
  for (std::size_t open; (open = lineTemplate.find('{')) != std::string_view::npos;) {
    const std::size_t close = lineTemplate.find('}', open);
    line += lineTemplate.substr(0, open);
    line += Expanded(lineTemplate.substr(open + 1, close - open - 1), params, contour);
    lineTemplate.remove_prefix(close + 1);
  }
  return line += lineTemplate;
}

const DeviceContourLines* FindLines(const DeviceParams& params) {
  for (const DeviceContourLines& row : AllDeviceContourLines()) {
    if (row.type == params.type && Holds(row.bore, params)) return &row;
  }
  return nullptr;
}

/// How far the stand-in reaches along x; none for a device that gets no stand-in. Under a collet and a
/// mandrel it lies behind the working face, before a chuck and a face driver it is a thin plate.
std::optional<double> PlaceholderWidth(const DeviceParams& device) {
  switch (device.type) {
    case 1:
    case 4: return 2.05;
    case 2: return -device.C;
    case 3: return -device.D;
    default: return std::nullopt;
  }
}

constexpr double kPlaceholderHeight = 4.1;

}  // namespace

bool BuildDeviceContour(const DeviceParams& params, std::int32_t contour) {
  if (params.type == 0 || IsOwnVdmType(params.type)) return false;
  for (const char* line : {"win 0", "s100=h 0", "s101=v 0"}) host::SendCommand(line);
  const DeviceContourLines* const row = FindLines(params);
  if (row == nullptr) {
    host::SendCommand("del s100>101");
  } else {
    for (const std::string_view line : row->lines) host::SendCommand(LineFrom(line, params, contour));
  }
  host::SendCommand("win 1");
  return row != nullptr;
}

bool BuildPlaceholderJaw(const DeviceParams& device) {
  const std::optional<double> width = PlaceholderWidth(device);
  if (!width) return false;
  for (const char* line : {"win 0", "s100=h0", "s101=v0", "p100=s100 s101"}) host::SendCommand(line);
  macro::SendLine("s102=h", kPlaceholderHeight);
  macro::SendLine("s103=v", *width);
  for (const char* line : {"k30001 p100 as100 ts103 ts102 as101 p100 ek", "del s100>103 p100", "win 1"}) {
    host::SendCommand(line);
  }
  return true;
}

}  // namespace vanzet
