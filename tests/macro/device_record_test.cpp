#include "macro/device_record.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "devices/kinds.h"

namespace vanzet {
namespace {

/// A record of that type with 1 to 10 behind its letters.
DeviceParams Full(std::int32_t type) {
  return {.type = type, .A = 1, .B = 2, .C = 3, .D = 4, .E = 5, .F = 6, .G = 7, .H = 8, .I = 9, .J = 10};
}

std::string Packed(const DeviceParams& params) {
  std::string text;
  PackDeviceParams(params, text);
  return text;
}

DeviceParams Unpacked(const std::string& text) {
  DeviceParams params = Full(99);
  UnpackDeviceParams(params, text);
  return params;
}

/// The letters of the values that are not 0.
std::string Letters(const DeviceParams& params) {
  std::string letters;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    if (ValueOf(params, letter) != 0) letters += letter;
  }
  return letters;
}

TEST(PackDeviceParams, WritesElevenFieldsOfAParametricDevice) {
  EXPECT_EQ(Packed(Full(2)),
            "2 1.000000 2.000000 3.000000 4.000000 5.000000 6.000000 7.000000 8.000000 9.000000 10.000000");
  EXPECT_EQ(Packed({.type = 2, .B = 0.5}),
            "2 0.000000 0.500000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000");
}

TEST(PackDeviceParams, WritesThreeFieldsOfADeviceKeptInAVdm) {
  EXPECT_EQ(Packed({.type = 105, .B = 3}), "105 0.000000 3.000000");
  EXPECT_EQ(Packed(Full(109)), "109 1.000000 2.000000") << "what is packed is not normalised";
}

TEST(PackDeviceParams, AppendsToTheText) {
  std::string text = "before ";
  PackDeviceParams({.type = 103}, text);
  EXPECT_EQ(text, "before 103 0.000000 0.000000");
}

TEST(UnpackDeviceParams, ReadsBackWhatWasPacked) {
  for (const devices::Device* const device : devices::Devices()) {
    DeviceParams params = Full(device->code);
    NormaliseDeviceParams(params);
    EXPECT_EQ(Unpacked(Packed(params)), params) << device->code;
  }
}

TEST(UnpackDeviceParams, TakesWhatIsMissingForZero) {
  EXPECT_EQ(Unpacked("2 1 2 3"), (DeviceParams{.type = 2, .A = 1, .B = 2, .C = 3}));
  EXPECT_EQ(Unpacked(""), DeviceParams{});
  EXPECT_EQ(Unpacked("0"), DeviceParams{});
  EXPECT_EQ(Unpacked("chuck 1 2"), (DeviceParams{.B = 0}));
}

TEST(UnpackDeviceParams, TakesNumbersInAnyFormAndSpacing) {
  EXPECT_EQ(Unpacked(" 1\t1e2  -5.5\n7"), (DeviceParams{.type = 1, .A = 100, .B = -5.5, .C = 7}));
}

TEST(UnpackDeviceParams, FoldsOlderCodes) {
  EXPECT_EQ(Unpacked("109 1 2"), (DeviceParams{.type = 103, .B = 2}));
  EXPECT_EQ(Unpacked("113 1 2 3 4"), (DeviceParams{.type = 107, .B = 2}));
  EXPECT_EQ(Unpacked("115 1 2 3"), (DeviceParams{.type = 115, .A = 1, .B = 2}));
}

TEST(NormaliseDeviceParams, KeepsOnlyTheLettersOfTheType) {
  const std::map<std::int32_t, std::string> keeps = {
      {1, "ABC"},       {2, "ABCDEF"},    {3, "ABCDEFGH"}, {4, "ABCDEFGHI"},  {5, "ABCDEFGH"},
      {6, "ABCDEFGH"},  {7, "ABCDEF"},    {8, "ABCDEF"},   {9, "ABCD"},       {10, "ABCDE"},
      {11, "ABCDEFGH"}, {12, "ABCDEFGH"}, {13, "ABCDEFG"}, {14, "ABCDEFGHI"}, {103, "B"},
      {104, "B"},       {105, "B"},       {106, "B"},      {107, "B"},        {115, "AB"}};
  for (std::int32_t type = -2; type <= 120; ++type) {
    if (type >= 109 && type <= 113) continue;
    DeviceParams params = Full(type);
    NormaliseDeviceParams(params);
    EXPECT_EQ(params.type, type);
    EXPECT_EQ(Letters(params), keeps.contains(type) ? keeps.at(type) : "B") << type;
  }
}

TEST(NormaliseDeviceParams, FoldsOlderCodesToThoseInUse) {
  for (std::int32_t type = 109; type <= 113; ++type) {
    DeviceParams params = Full(type);
    NormaliseDeviceParams(params);
    EXPECT_EQ(params, (DeviceParams{.type = type - 6, .B = 2}));
  }
}

TEST(NormaliseDeviceType, TurnsADeviceIntoTheOneKeptInAVdmWithoutValues) {
  const std::map<std::int32_t, std::int32_t> turned = {
      {1, 103},   {103, 103}, {109, 103}, {2, 105},   {105, 105}, {111, 105}, {3, 106},
      {106, 106}, {112, 106}, {4, 107},   {107, 107}, {113, 107}, {5, 104},   {6, 104},
      {7, 104},   {8, 104},   {9, 104},   {10, 104},  {11, 104},  {12, 104},  {104, 104},
      {110, 104}, {13, 115},  {14, 115},  {115, 115}};
  for (std::int32_t type = -2; type <= 120; ++type) {
    DeviceParams params = Full(type);
    NormaliseDeviceType(params);
    EXPECT_EQ(params, DeviceParams{.type = turned.contains(type) ? turned.at(type) : type}) << type;
  }
}

}  // namespace
}  // namespace vanzet
