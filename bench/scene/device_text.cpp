#include "scene/device_text.h"

#include "modeller/booleans.h"
#include "modeller/exchange.h"
#include "modeller/mesh.h"
#include "scene/equipment.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;

constexpr std::string_view kPlug = "PLG_", kSocket = "SCK_";

/// A marker is a tetrahedron; its first point is the place that it marks.
Result<Point3d> PlaceOf(const modeller::Body& marker) {
  VANZET_TRY(const modeller::Mesh mesh, modeller::MeshOf(marker, {}));
  return mesh.points.front();
}

Result<std::optional<DeviceText>> DeviceOf(const std::vector<modeller::VrmlBody>& bodies) {
  DeviceText device{modeller::Body(nullptr), {0, 0, 0}, {0, 0, 0}, 0};
  std::vector<modeller::Body> own;
  for (const modeller::VrmlBody& body : bodies) {
    const bool isPlug = body.name.starts_with(kPlug);
    if (!isPlug && !body.name.starts_with(kSocket)) {
      own.push_back(body.body);
      continue;
    }
    VANZET_TRY(const Point3d place, PlaceOf(body.body));
    (isPlug ? device.plug : device.socket) = place;
  }
  if (own.empty()) return std::optional<DeviceText>();
  VANZET_TRY(device.body, modeller::JoinBodies(own));
  return std::optional(device);
}

/// The lines of a text, each with its end. A scan has a hundred million letters: they are copied once.
std::string TextOf(const std::vector<std::string>& lines) {
  std::size_t size = 0;
  for (const std::string& line : lines) size += line.size() + 1;
  std::string text;
  text.reserve(size);
  for (const std::string& line : lines) {
    text += line;
    if (!line.ends_with('\n')) text += '\n';
  }
  return text;
}

/// The reach that the placement says. An imported device has its D2T text in the section of the placement,
/// and the placement in the next one.
double ReachOf(const project::Definition& definition, std::size_t operation) {
  for (const std::size_t section : {std::size_t{3}, std::size_t{2}}) {
    const auto& items = definition.Items(operation, section);
    if (!items.empty()) return ThreeReals(items.front())[2];
  }
  return 0;
}

}  // namespace

Result<std::optional<DeviceText>> ReadDeviceText(const project::Definition& definition, std::size_t operation,
                                                 const modeller::Exchange& exchange) {
  const std::string text = TextOf(definition.Items(operation, 1));
  if (text.empty()) return std::optional<DeviceText>();
  const auto bodies = modeller::ImportVrml(text, exchange);
  auto device = bodies ? DeviceOf(*bodies) : Result<std::optional<DeviceText>>(bodies.fault());
  if (!device) {
    Fault fault = device.fault();
    fault.text = "operation " + std::to_string(operation) + ", " + definition.operations[operation].Label() +
                 ": " + fault.text;
    return fault;
  }
  if (*device) (*device)->reach = ReachOf(definition, operation);
  return device;
}

}  // namespace vanzet::scene
