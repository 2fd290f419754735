#include "macro/device_contour.h"

#include <string>
#include <string_view>

#include "devices/formula.h"
#include "devices/kinds.h"
#include "devices/outline.h"
#include "host/bridge.h"
#include "macro/command_text.h"

namespace vanzet {
namespace {

/// The text that replaces an expression in braces.
std::string ExpandBraces(std::string_view expression, const DeviceParams& params, std::int32_t contour) {
  if (expression == "n") return macro::FormatInt(contour);
  return macro::FormatReal(Evaluate(expression, params));
}

std::string LineFrom(std::string_view lineTemplate, const DeviceParams& params, std::int32_t contour) {
  std::string line;
  for (std::size_t open; (open = lineTemplate.find('{')) != std::string_view::npos;) {
    const std::size_t close = lineTemplate.find('}', open);
    line += lineTemplate.substr(0, open);
    line += ExpandBraces(lineTemplate.substr(open + 1, close - open - 1), params, contour);
    lineTemplate.remove_prefix(close + 1);
  }
  return line += lineTemplate;
}

constexpr double kPlaceholderHeight = 4.1;

}  // namespace

bool BuildDeviceContour(const DeviceParams& params, std::int32_t contour) {
  if (params.type == 0 || devices::IsOwn(params.type)) return false;
  for (const char* line : {"win 0", "s100=h 0", "s101=v 0"}) host::SendCommand(line);
  const devices::Outline* const outline = devices::FindOutline(params);
  if (outline == nullptr) {
    host::SendCommand("del s100>101");
  } else {
    for (const std::string_view line : outline->lines) host::SendCommand(LineFrom(line, params, contour));
  }
  host::SendCommand("win 1");
  return outline != nullptr;
}

bool BuildPlaceholderJaw(const DeviceParams& params) {
  const devices::Device* const device = devices::Find(params.type);
  if (device == nullptr || device->standIn.empty()) return false;
  for (const char* line : {"win 0", "s100=h0", "s101=v0", "p100=s100 s101"}) host::SendCommand(line);
  macro::SendLine("s102=h", kPlaceholderHeight);
  macro::SendLine("s103=v", Evaluate(device->standIn, params));
  for (const char* line : {"k30001 p100 as100 ts103 ts102 as101 p100 ek", "del s100>103 p100", "win 1"}) {
    host::SendCommand(line);
  }
  return true;
}

}  // namespace vanzet
