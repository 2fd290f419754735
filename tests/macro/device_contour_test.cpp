#include "macro/device_contour.h"

#include "macro/macro_fixture.h"

namespace vanzet::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class DeviceContour : public MacroTest {
 protected:
  std::vector<std::string> LinesOf(const DeviceParams& params, std::int32_t contour = kDeviceContour) {
    isMade = BuildDeviceContour(params, contour);
    return TakeLines();
  }
  std::vector<std::string> PlaceholderLinesOf(const DeviceParams& params) {
    isMade = BuildPlaceholderJaw(params);
    return TakeLines();
  }

  bool isMade = false;
};

/// The lines of one type: sensible values into each contour, then negative, zero and large ones.
class DeviceContourLinesOfType : public DeviceContour, public testing::WithParamInterface<std::int32_t> {
 protected:
  void Add(const char* title, const DeviceParams& params, std::int32_t contour) {
    text += std::string("# ") + title + "\n" + Lines(LinesOf(params, contour));
    EXPECT_TRUE(isMade);
  }
  static DeviceParams Scaled(std::int32_t type, double by) {
    return {type, 100 * by, 50 * by, 30 * by, 20 * by, 15 * by, 2.5 * by, 60 * by, 12 * by, 45 * by, 9 * by};
  }

  std::string text;
};

TEST_P(DeviceContourLinesOfType, AreThese) {
  const std::int32_t type = GetParam();
  Add("sensible values, spun", Scaled(type, 1), kDeviceContour);
  Add("sensible values, extruded", Scaled(type, 1), kJawContour);
  Add("negative values", Scaled(type, -1), kDeviceContour);
  Add("zero", DeviceParams{.type = type}, kDeviceContour);
  Add("large values", Scaled(type, 1.5e9), kDeviceContour);
  EXPECT_GOLDEN(text, "macro/device_" + std::to_string(type) + ".lines");
}

INSTANTIATE_TEST_SUITE_P(Types, DeviceContourLinesOfType, testing::Range(1, 15),
                         [](const auto& type) { return "Type" + std::to_string(type.param); });

TEST_F(DeviceContour, OfAChuckWithoutBoreIsMadeByTheseLines) {
  EXPECT_THAT(
      LinesOf({.type = 1, .A = 100, .B = 50, .C = 0}),
      ElementsAre("win 0", "s100=h 0", "s101=v 0", "s102=h 100.000000", "s103=v -50.000000", "p100=s100 s101",
                  "k30000 p100 as100 ts103 ts102 as101 p100 ek", "del s100>103 p100", "win 1"));
  EXPECT_TRUE(isMade);
}

TEST_F(DeviceContour, OfAChuckTakesTheMagnitudeOfB) {
  EXPECT_THAT(LinesOf({.type = 1, .B = -30}), Contains("s103=v -30.000000"));
  EXPECT_THAT(LinesOf({.type = 1, .B = 30}), Contains("s103=v -30.000000"));
  EXPECT_THAT(LinesOf({.type = 1, .B = 0}), Contains("s103=v -0.000000"));
  EXPECT_THAT(LinesOf({.type = 2, .B = -30}), Contains("s105=v 30.000000"));
}

TEST_F(DeviceContour, SendsAnglesInDegrees) {
  EXPECT_THAT(LinesOf({.type = 4, .I = 45}), Contains("s102=b135.000000 p100"));
  EXPECT_THAT(LinesOf({.type = 13, .E = 60}), Contains("s103=b-30.000000 p101"));
  EXPECT_THAT(LinesOf({.type = 14, .G = 90}), Contains("s106=b-45.000000 p102"));
}

TEST_F(DeviceContour, SendsDifferencesInTheirOrder) {
  EXPECT_THAT(LinesOf({.type = 12, .A = 10, .D = 4, .F = 1.5}), Contains("s106=7.500000 ls100"));
}

TEST_F(DeviceContour, OfATypeThatNobodyKnowsIsTakenBack) {
  for (const std::int32_t type : {108, 114, 15, -1}) {
    EXPECT_THAT(LinesOf({.type = type, .A = 1}),
                ElementsAre("win 0", "s100=h 0", "s101=v 0", "del s100>101", "win 1"));
    EXPECT_FALSE(isMade);
  }
}

TEST_F(DeviceContour, OfNoDeviceAndOfOneKeptInAVdmSendsNothing) {
  for (const std::int32_t type : {0, 103, 104, 105, 106, 107, 109, 110, 111, 112, 113, 115}) {
    EXPECT_THAT(LinesOf({.type = type, .A = 1, .B = 2}), IsEmpty()) << type;
    EXPECT_FALSE(isMade);
  }
}

TEST_F(DeviceContour, ShowsNoBoxWhateverHappens) {
  LinesOf({.type = 13});
  LinesOf({.type = 114});
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(DeviceContour, GoesOnWithoutAHostThatListens) {
  host.missing = {"OrvoCommand"};
  EXPECT_TRUE(BuildDeviceContour({.type = 9, .A = 1, .B = 2}, kJawContour));
  EXPECT_EQ(host.missingCalls, 9);
}

std::vector<std::string> PlaceholderOfWidth(const std::string& width) {
  return {"win 0",
          "s100=h0",
          "s101=v0",
          "p100=s100 s101",
          "s102=h4.100000",
          "s103=v" + width,
          "k30001 p100 as100 ts103 ts102 as101 p100 ek",
          "del s100>103 p100",
          "win 1"};
}

TEST_F(DeviceContour, PlaceholderJawIsAThinPlateBeforeAChuckOrFaceDriver) {
  for (const std::int32_t type : {1, 4}) {
    EXPECT_EQ(PlaceholderLinesOf({.type = type, .C = 7, .D = 8}), PlaceholderOfWidth("2.050000"));
    EXPECT_TRUE(isMade);
  }
}

TEST_F(DeviceContour, PlaceholderJawLiesBehindTheFaceOfAColletOrMandrel) {
  EXPECT_EQ(PlaceholderLinesOf({.type = 2, .C = 7, .D = 8}), PlaceholderOfWidth("-7.000000"));
  EXPECT_EQ(PlaceholderLinesOf({.type = 3, .C = 7, .D = 8}), PlaceholderOfWidth("-8.000000"));
  EXPECT_EQ(PlaceholderLinesOf({.type = 3}), PlaceholderOfWidth("-0.000000"));
}

TEST_F(DeviceContour, PlaceholderJawIsNotMadeForAnyOtherDevice) {
  for (const std::int32_t type : {-1, 0, 5, 9, 12, 13, 14, 103, 105, 109}) {
    EXPECT_THAT(PlaceholderLinesOf({.type = type, .C = 7, .D = 8}), IsEmpty()) << type;
    EXPECT_FALSE(isMade);
  }
}

}  // namespace
}  // namespace vanzet::test
