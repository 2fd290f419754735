#pragma once

#include <random>

#include "devices/device_params.h"

namespace vanzet::test {

/// Devices with values as a shop would give them: outlines that do not cross themselves. Lengths are whole
/// thousandths of a millimetre, angles whole hundredths of a degree, so that six decimals tell them whole.
class SensibleDevices {
 public:
  explicit SensibleDevices(unsigned seed) : random_(seed) {}

  /// Requires: a type from 1 to 14.
  DeviceParams Next(std::int32_t type);

  /// Values in the order of chance, many of them equal, 0 or below: some make a solid.
  DeviceParams NextOdd(std::int32_t type);

 private:
  double Between(double least, double most);
  double Angle(double least, double most) { return Between(least * 10, most * 10) / 10; }

  DeviceParams Chuck();
  DeviceParams Collet();
  DeviceParams Mandrel();
  DeviceParams FaceDriver();
  DeviceParams SteppedJaw();  ///< 5 and 6
  DeviceParams SimpleJaw();   ///< 7 to 10
  DeviceParams HookedJaw();   ///< 11 and 12
  DeviceParams Center();      ///< 13 and 14

  std::mt19937 random_;
};

}  // namespace vanzet::test
