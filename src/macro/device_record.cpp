#include "macro/device_record.h"

#include <cstdint>

#include "devices/kinds.h"
#include "host/fields.h"
#include "macro/command_text.h"

namespace vanzet {
namespace {

/// The reals that a device kept in a VDM writes: A and B.
constexpr std::size_t kOwnVdmReals = 2;

std::size_t StoredReals(const DeviceParams& params) {
  return devices::IsOwn(params.type) ? kOwnVdmReals : kDeviceReals.size();
}

/// The letters that keep their values; a type without facts keeps B.
bool Keeps(std::int32_t type, char letter) {
  return devices::Find(type) == nullptr ? letter == 'B' : devices::FindLetter(type, letter) != nullptr;
}

}  // namespace

void PackDeviceParams(const DeviceParams& params, std::string& text) {
  text += macro::FormatInt(params.type);
  for (std::size_t i = 0; i < StoredReals(params); ++i) {
    text += " " + macro::FormatReal(params.*kDeviceReals[i]);
  }
}

void UnpackDeviceParams(DeviceParams& params, const std::string& text) {
  params = {};
  std::size_t position = 0;
  host::ReadIntField(text, position, params.type, 0);
  for (std::size_t i = 0; i < StoredReals(params); ++i) {
    host::ReadRealField(text, position, params.*kDeviceReals[i], 0);
  }
  NormaliseDeviceParams(params);
}

void NormaliseDeviceParams(DeviceParams& params) {
  params.type = devices::NewerCode(params.type);
  for (std::size_t i = 0; i < kDeviceReals.size(); ++i) {
    if (!Keeps(params.type, static_cast<char>('A' + i))) params.*kDeviceReals[i] = 0;
  }
}

void NormaliseDeviceType(DeviceParams& params) {
  params = {.type = devices::OwnCodeOf(params.type)};
}

}  // namespace vanzet
