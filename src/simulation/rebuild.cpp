#include "simulation/rebuild.h"

#include <optional>
#include <string_view>

#include "devices/kinds.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "macro/command_text.h"
#include "macro/device_contour.h"
#include "simulation/device_contours.h"
#include "simulation/device_vrml.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

using host::hostFunctions;
using host::SendCommand;
using macro::FormatInt;
using macro::FormatReal;

/// The thickness of a stand-in.
constexpr double kPlaceholderThickness = 2.05;

/// The file that the host exports a solid to. Its name is part of the conversation; texts of commands keep
/// the backslash.
std::string TemporaryFile() {
  return hostFunctions.OrvoEnvironment("TMP") + "\\tmpclamp.wrl";
}

/// Lines about solids go through a place of this size on their way; what does not fit is cut.
void SendSolidCommand(const std::string& line) {
  constexpr std::size_t kCommandBytes = 1024;
  SendCommand(line.substr(0, kCommandBytes - 1));
}

/// Has the host make a solid and returns its number; 0 or less when it could not.
std::int32_t MakeBody(const std::string& line) {
  SendSolidCommand(line);
  return OrvoApi::GetGlobalIntVar("i_return");
}

/// Exports the solid, made or not, and gives it back.
void ExportAndDelete(std::int32_t body, const std::string& path) {
  SendSolidCommand("dll kelvane.dll exportVRML '" + path + "' 1 " + FormatInt(body));
  if (body > 0) hostFunctions.OrvoPsDeleteBody(body);
}

/// How far behind its working face a device is clamped.
double PlacementOf(const DeviceParams& device) {
  return devices::IsCenter(device.type) ? device.A : device.B;
}

/// The contour of a jaw and how thick it is to be made.
struct JawContour {
  bool isMade;
  double thickness;
};

bool HasStandIn(std::int32_t type) {
  const devices::Device* const device = devices::Find(type);
  return device != nullptr && !device->standIn.empty();
}

/// Nothing for a device or a jaw that cannot be made here.
std::optional<JawContour> BuildJawContour(BilletVdm& definition, std::int32_t spindle,
                                          const DeviceParams& device) {
  if (devices::IsChuck(device.type)) {
    std::string name;
    DeviceParams jaw;
    if (!definition.ReadJawItems(spindle, name, jaw)) jaw = {};
    if (devices::IsOwn(jaw.type)) return std::nullopt;
    if (jaw.type != 0) return JawContour{BuildDeviceContour(jaw, kJawContour), devices::ThicknessOf(jaw)};
  } else if (!HasStandIn(device.type)) {
    return std::nullopt;
  }
  return JawContour{BuildPlaceholderJaw(device), kPlaceholderThickness};
}

/// Extrudes the contour, lays the body into the plane of the spindle with the contour in its middle, and
/// exports it.
void ExportJaw(double thickness, const std::string& path) {
  SendCommand("win 0");
  const std::int32_t body = MakeBody("sld ext kur k30001 " + FormatReal(thickness) + " i_return");
  const std::string number = FormatInt(body);
  SendSolidCommand("sld tra 1 " + number + " 0 0 0 0 0 " + FormatReal(-thickness * 0.5));
  SendSolidCommand("sld rot 1 " + number + " 0 0 0 1 0 0 90");
  ExportAndDelete(body, path);
}

/// Turns the contour as the jaw's description and outline want it.
void TurnJawContour() {
  for (const char* line :
       {"set m30000", "rot m30000 x180", "rot m30000 z90", "copy k30001 m30000", "del m30000"}) {
    SendCommand(line);
  }
}

}  // namespace

bool RebuildJawSimulation(BilletVdm& definition, bool isSub) {
  const std::int32_t spindle = isSub ? 1 : 0;
  std::string name;
  DeviceParams device;
  if (!definition.ReadDeviceItems(spindle, name, device)) return false;
  const std::optional<JawContour> contour = BuildJawContour(definition, spindle, device);
  if (!contour) return false;
  if (!contour->isMade) return true;
  const std::string path = TemporaryFile();
  ExportJaw(contour->thickness, path);
  StoreDeviceVrml(definition, isSub, true, devices::kJaw.First(), path, 0);
  TurnJawContour();
  StoreJawD2t(definition, isSub);
  StoreKurveGeometry(definition, isSub, devices::kJaw.First(), kJawContour);
  SendCommand("del k30001");
  SendCommand("win 1");
  return true;
}

void BuildSpunDevice(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                     const DeviceParams& device) {
  const std::string path = TemporaryFile();
  BuildDeviceContour(device, kDeviceContour);
  SendCommand("win 0");
  const std::int32_t body = MakeBody("sld spu kur k30000 0 0 0 1 0 0 360 i_return");
  ExportAndDelete(body, path);
  StoreDeviceVrmlFor(spur, spindle, subSpindleAvailable, device.type, path, PlacementOf(device));
  StoreGeometryFor(spur, spindle, device.type);
  SendCommand("del k30000");
}

std::int32_t RebuildSimulation(std::int32_t spur, std::int32_t spindle) {
  return ReadRecord(
      spur, [spindle](BilletVdm& definition) { return RebuildJawSimulation(definition, spindle != 0); });
}

std::int32_t StoreDeviceVrmlFor(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                                std::int32_t type, const std::string& path, double offset) {
  return ReadRecord(spur, [&](BilletVdm& definition) {
    return StoreDeviceVrml(definition, spindle != 0, subSpindleAvailable, type, path, offset);
  });
}

std::int32_t StoreGeometryFor(std::int32_t spur, std::int32_t spindle, std::int32_t type) {
  return ReadRecord(spur, [spindle, type](BilletVdm& definition) {
    return StoreKurveGeometry(definition, spindle != 0, type, kDeviceContour);
  });
}

}  // namespace vanzet
