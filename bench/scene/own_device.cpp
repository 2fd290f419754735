#include "scene/own_device.h"

#include <cmath>

#include "base/device_vrml.h"
#include "base/number_text.h"
#include "base/numbers.h"
#include "modeller/mesh.h"
#include "scene/equipment.h"

namespace vanzet::scene {
namespace {

using Lines = std::vector<std::string>;

std::string RealText(double value) {
  constexpr int kDecimals = 6;
  return FixedText(value, kDecimals);
}

void AddFacets(const modeller::Mesh& mesh, Lines& lines) {
  const std::string indent(12, ' ');
  lines.push_back(indent + "coord Coordinate { point [\n");
  for (const geometry::Point3d& p : mesh.points) {
    lines.push_back(indent + RealText(p.x) + " " + RealText(p.y) + " " + RealText(p.z) + ",\n");
  }
  lines.push_back(indent + "] }\n");
  lines.push_back(indent + "coordIndex\n");
  lines.push_back(indent + "[\n");
  for (const auto& [a, b, c] : mesh.triangles) {
    lines.push_back(indent + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) +
                    " -1,\n");
  }
  lines.push_back(indent + "]\n");
}

double OffsetOf(const OwnDevice& device) {
  switch (device.deviceClass) {
    case DeviceClass::kChuck: return std::abs(device.first);
    case DeviceClass::kJaw: return 0;
    case DeviceClass::kCenter: return device.second;
  }
  return 0;
}

/// "G X Y 0 0 0 RADIUS": G is 1 straight, 2 clockwise, 3 anticlockwise.
std::string ElementOf(const geometry::Kurve& outline, int vertex) {
  geometry::Point end, centre;
  const int direction = outline.Get(vertex, end, centre);
  const bool isArc = vertex > 0 && direction != geometry::LINEAR;
  const char* const code = !isArc ? "1" : direction == geometry::CW ? "2" : "3";
  const double radius = isArc ? std::hypot(end.x - centre.x, end.y - centre.y) : 0;
  return std::string(code) + " " + RealText(end.x) + " " + RealText(end.y) + " 0 0 0 " + RealText(radius);
}

/// An operation: its header, then the items of its sections.
vdm::Record RecordOf(const std::string& kind, const std::vector<Lines>& sections) {
  std::string header = kind + " 1 " + std::to_string(sections.size());
  for (const Lines& section : sections) header += " " + std::to_string(section.size());
  vdm::Record record;
  record.Insert(0, header);
  for (const Lines& section : sections) {
    for (const std::string& item : section) record.Insert(record.Size(), item);
  }
  return record;
}

}  // namespace

Result<std::vector<std::string>> DeviceVrmlLines(const modeller::Body& body, double offset,
                                                 const modeller::MeshTolerance& fineness) {
  VANZET_TRY(const modeller::Mesh mesh, modeller::MeshOf(body, fineness));
  Lines lines;
  const LineSink sink = [&](const std::string& line) { lines.push_back(line); };
  GiveDeviceVrmlHead(sink);
  AddFacets(mesh, lines);
  GiveDeviceVrmlTail(RealText(-offset), RealText(-offset - kVrmlMarkerLength), sink);
  return lines;
}

Result<vdm::Vdm> MakeOwnDevice(const OwnDevice& device) {
  VANZET_TRY(Lines text, DeviceVrmlLines(device.body, OffsetOf(device), device.fineness));
  const std::string word(devices::WordOf(device.deviceClass));
  const std::string values = std::to_string(devices::kClampDeviceGroup) + " " +
                             std::to_string(static_cast<int>(device.deviceClass)) + " " +
                             RealText(device.first) + " " + RealText(device.second);
  Lines outline;
  for (int vertex = 0; vertex < device.outline.nVertices; ++vertex) {
    outline.push_back(ElementOf(device.outline, vertex));
  }
  vdm::Vdm content;
  content.Insert(0, RecordOf("1", {{"Own device"}}));
  content.Insert(1, RecordOf("2", {{"Own " + word}, std::move(text), {values}, std::move(outline)}));
  return content;
}

Result<OwnDeviceValues> ReadOwnDeviceValues(const project::Definition& content) {
  const auto& items = content.Items(kOwnDeviceOperation, 2);
  if (items.empty()) return Fault{"is not a device: operation 1 has no values"};
  std::string_view rest = items.front();
  const auto group = IntegerPrefix(rest);
  rest.remove_prefix(group ? group->used : 0);
  const auto number = IntegerPrefix(rest);
  rest.remove_prefix(number ? number->used : 0);
  const auto deviceClass = static_cast<DeviceClass>(number ? number->value : -1);
  if (!group || group->value != devices::kClampDeviceGroup || devices::WordOf(deviceClass).empty()) {
    return Fault{"is not a chuck, jaw or center"};
  }
  const auto [first, second, none] = ThreeReals(rest);
  return OwnDeviceValues{deviceClass, first, second};
}

}  // namespace vanzet::scene
