#include "macro/device_record.h"

#include <cstdint>
#include <string_view>

#include "devices/device_types.h"
#include "host/fields.h"
#include "macro/command_text.h"

namespace vanzet {
namespace {

/// The reals that a device kept in a VDM writes: A and B.
constexpr std::size_t kOwnVdmReals = 2;

std::size_t StoredReals(const DeviceParams& params) {
  return IsOwnVdmType(params.type) ? kOwnVdmReals : kDeviceReals.size();
}

struct OwnVdmFold {
  std::int32_t first, last;  ///< the types
  std::int32_t ownVdmType;   ///< what they become
};

// clang-format off
constexpr OwnVdmFold kOwnVdmFolds[] = {
    // Parametric       Own            Own, older code
    {  1,  1, 103 }, { 103, 103, 103 }, { 109, 109, 103 },
    {  5, 12, 104 }, { 104, 104, 104 }, { 110, 110, 104 },
    {  2,  2, 105 }, { 105, 105, 105 }, { 111, 111, 105 },
    {  3,  3, 106 }, { 106, 106, 106 }, { 112, 112, 106 },
    {  4,  4, 107 }, { 107, 107, 107 }, { 113, 113, 107 },
    { 13, 14, 115 }, { 115, 115, 115 },
};
// clang-format on

std::int32_t OwnVdmTypeOf(std::int32_t type) {
  for (const OwnVdmFold& fold : kOwnVdmFolds) {
    if (type >= fold.first && type <= fold.last) return fold.ownVdmType;
  }
  return type;
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
  if (IsOwnVdmType(params.type)) params.type = OwnVdmTypeOf(params.type);
  const DeviceType* const type = FindDeviceType(params.type);
  const std::string_view keeps = type == nullptr ? "B" : type->keeps;
  for (std::size_t i = 0; i < kDeviceReals.size(); ++i) {
    if (keeps.find(static_cast<char>('A' + i)) == std::string_view::npos) params.*kDeviceReals[i] = 0;
  }
}

void NormaliseDeviceType(DeviceParams& params) {
  params = {.type = OwnVdmTypeOf(params.type)};
}

}  // namespace vanzet
