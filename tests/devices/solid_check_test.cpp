#include "devices/solid_check.h"

#include <gtest/gtest.h>

#include "devices/kinds.h"

namespace vanzet::devices {
namespace {

/// The letters and the reason; empty for values that make a solid.
std::string FaultOf(const DeviceParams& params) {
  const auto fault = FindSolidFault(params);
  return fault ? fault->letters + ": " + fault->reason : "";
}

TEST(SolidFault, IsThereForNoExample) {
  for (const Device* const device : Devices()) EXPECT_EQ(FaultOf(device->example), "") << device->code;
}

TEST(SolidFault, NamesALetterBeyondItsLimit) {
  EXPECT_EQ(FaultOf({.type = 1, .A = -5, .B = 90}), "A: A (-5) must be above 0");
  EXPECT_EQ(FaultOf({.type = 1, .A = 80, .B = 0}), "B: B (0) must not be 0");
  EXPECT_EQ(FaultOf({.type = 1, .A = 0.0001, .B = 10}), "A: A (0.0001) must be at least 0.001 mm");
  EXPECT_EQ(FaultOf({.type = 2, .A = 30, .B = 80, .C = 18, .D = 16, .E = 42, .F = -1}),
            "F: F (-1) must not be below 0");
  EXPECT_EQ(FaultOf({.type = 9, .A = 46, .B = 70, .C = 12, .D = 0}), "D: D (0) must be above 0");
}

TEST(SolidFault, IsExplainedByTheRuleThatIsBroken) {
  EXPECT_EQ(FaultOf({.type = 1, .A = 80, .B = 90, .C = 100}), "CA: C (100) must be less than A (80)");
  EXPECT_EQ(FaultOf({.type = 1, .A = 80, .B = 90, .C = 80}), "CA: C (80) must be less than A (80)");
  EXPECT_EQ(FaultOf({.type = 11, .A = 50, .B = 84, .C = 70, .D = 38, .E = 20, .F = 18, .H = 28}),
            "CBE: C (70) must be less than B-E (64)");
  EXPECT_EQ(FaultOf({.type = 4, .A = 50, .B = 110, .C = 80, .D = 22, .F = 20, .I = 45}),
            "DIF: D*tan I (22) must be less than F (20)");
}

TEST(SolidFault, IsAnAngleThatNoConeHas) {
  DeviceParams center = Find(13)->example;
  center.G = 420;  // an outline like that of 60 degrees
  EXPECT_EQ(FaultOf(center), "G: G (420) must be less than 180");
}

TEST(SolidFault, IsAWallThatIsTooThin) {
  EXPECT_EQ(FaultOf({.type = 1, .A = 80, .B = 90, .C = 79.9995}),
            ": these values make an outline that crosses or touches itself");
}

TEST(SolidFault, IsASlopeThatDoesNotSlope) {
  EXPECT_EQ(FaultOf({.type = 10, .A = 46, .B = 70, .C = 34, .D = 46, .E = 25}),
            ": these values make an outline with a corner that does not turn");
}

TEST(SolidFault, IsNotABrokenRuleWhoseOutlineIsSoundAllTheSame) {
  EXPECT_EQ(FaultOf({.type = 3, .A = 46, .B = 100, .C = 36, .D = 52, .E = 70, .F = 50, .G = 24, .H = 24}), "")
      << "a first step above the second";
  EXPECT_EQ(FaultOf({.type = 8, .A = 46, .B = 34, .C = 34, .D = 20, .F = 25}), "")
      << "a step without a width";
}

TEST(SolidFault, ShowsTheLengthsInTheUnitThatIsWanted) {
  const DeviceParams chuck = {.type = 1, .A = 50.8, .B = 90, .C = 76.2},
                     inches = {.type = 1, .A = 2, .B = 4, .C = 3};
  EXPECT_EQ(FindSolidFault(chuck, inches)->reason, "C (3) must be less than A (2)");
}

TEST(SolidFault, IsThereForNoDeviceWithoutAnOutline) {
  for (const std::int32_t type : {-1, 0, 15, 103, 115}) EXPECT_EQ(FaultOf({.type = type, .A = -1}), "");
}

}  // namespace
}  // namespace vanzet::devices
