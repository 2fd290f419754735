#include "closed_loop/sensible_devices.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vanzet::test {

double SensibleDevices::Between(double least, double most) {
  return std::round(std::uniform_real_distribution(least, most)(random_) * 1000) / 1000;
}

DeviceParams SensibleDevices::Chuck() {
  DeviceParams d;
  d.A = Between(20, 300);
  d.B = Between(10, 200);
  // Every fourth one has no bore, and a value below zero means the same.
  d.C = Between(-d.A / 4, d.A * 0.75);
  return d;
}

DeviceParams SensibleDevices::Collet() {
  DeviceParams d;
  d.D = Between(2, 30);
  d.E = d.D + Between(1, 20);
  d.A = d.E + Between(1, 30);
  d.C = Between(3, 30);
  d.B = d.C + Between(1, 80);
  // Some have no chamfer; one of a hundredth would be no chamfer to anybody.
  d.F = std::max(0.0, Between(-0.2, std::min(d.C, d.E - d.D) * 0.9));
  if (d.F < 0.01) d.F = 0;
  return d;
}

DeviceParams SensibleDevices::Mandrel() {
  DeviceParams d;
  d.C = Between(5, 40);
  d.D = d.C + Between(1, 40);
  d.E = d.D + Between(1, 40);
  d.B = d.E + Between(1, 60);
  d.F = Between(3, 40);
  d.G = d.F + Between(1, 20);
  d.H = d.G + Between(1, 20);
  d.A = d.H + Between(1, 50);
  return d;
}

DeviceParams SensibleDevices::FaceDriver() {
  DeviceParams d;
  d.D = Between(2, 15);
  d.C = d.D + Between(5, 40);
  d.B = d.C + Between(5, 60);
  d.I = Angle(5, 60);
  d.F = std::ceil(d.D * std::tan(d.I * std::numbers::pi / 180)) + Between(1, 20);
  d.A = d.F + Between(1, 60);
  return d;
}

DeviceParams SensibleDevices::SteppedJaw() {
  DeviceParams d;
  d.C = Between(5, 30);
  d.D = d.C + Between(1, 30);
  d.B = d.D + Between(1, 40);
  d.E = Between(3, 20);
  d.F = d.E + Between(1, 20);
  d.A = d.F + Between(1, 30);
  d.H = Between(5, 60);
  return d;
}

DeviceParams SensibleDevices::SimpleJaw() {
  DeviceParams d;
  d.C = Between(3, 40);
  d.B = d.C + Between(1, 40);
  d.D = Between(3, 40);
  d.A = d.D + Between(1, 40);
  d.E = Between(5, 60);
  d.F = Between(5, 60);
  return d;
}

DeviceParams SensibleDevices::HookedJaw() {
  DeviceParams d;
  d.C = Between(3, 30);
  d.E = Between(2, 20);
  d.B = d.C + d.E + Between(1, 30);
  d.F = Between(2, 15);
  d.D = d.F + Between(1, 20);
  d.A = d.D + Between(1, 40);
  d.H = Between(5, 60);
  return d;
}

DeviceParams SensibleDevices::Center() {
  const auto halfTangent = [](double angle) { return std::tan(angle * std::numbers::pi / 360); };
  DeviceParams d;
  d.G = Angle(30, 90);
  d.D = Between(2, 20);
  d.C = std::ceil(d.D / halfTangent(d.G)) + Between(1, 20);
  d.B = d.C + Between(1, 30);
  d.E = Angle(10, 60);
  d.F = std::ceil(d.D + (d.B - d.C) * halfTangent(d.E)) + Between(1, 20);
  d.I = Between(1, 30);
  d.A = d.B + d.I + Between(1, 80);
  d.H = d.F + Between(1, 20);
  return d;
}

DeviceParams SensibleDevices::Next(std::int32_t type) {
  using Make = DeviceParams (SensibleDevices::*)();
  using Self = SensibleDevices;
  static constexpr Make kMakers[] = {
      &Self::Chuck,      &Self::Collet,    &Self::Mandrel,   &Self::FaceDriver, &Self::SteppedJaw,
      &Self::SteppedJaw, &Self::SimpleJaw, &Self::SimpleJaw, &Self::SimpleJaw,  &Self::SimpleJaw,
      &Self::HookedJaw,  &Self::HookedJaw, &Self::Center,    &Self::Center};
  const Make make = kMakers[type - 1];
  DeviceParams device = (this->*make)();
  device.type = type;
  return device;
}

DeviceParams SensibleDevices::NextOdd(std::int32_t type) {
  DeviceParams device = Next(type);
  std::uniform_int_distribution<std::size_t> letter(0, kDeviceReals.size() - 1);
  for (int changes = 0; changes < 4; ++changes) {
    // Equal lengths, steps that return, and now and then a sign that is wrong.
    double& changed = device.*kDeviceReals[letter(random_)];
    changed = random_() % 2 == 0 ? device.*kDeviceReals[letter(random_)] : Between(-10, 90);
  }
  return device;
}

}  // namespace vanzet::test
