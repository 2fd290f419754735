#include <cmath>
#include <numbers>

#include "language_fixture.h"

/// The lines that make the outlines of clamp devices, with the vertices that are promised for them.
namespace vanzet::language {
namespace {

struct Vertex {
  double x, y;
};

struct Device {
  const char* name;
  std::vector<std::string> lines;  ///< between the head and the clean-up
  std::string cleanUp;
  std::vector<Vertex> vertices;  ///< without the first again

  friend void PrintTo(const Device& device, std::ostream* out) { *out << device.name; }
};

double Tan(double degrees) {
  return std::tan(degrees * std::numbers::pi / 180);
}

/// Centres: the point on the line through (-B, F) = (-80, 40) at -E/2 degrees, E = 60, where x = -C = -50.
const double kCentreY = 40 - Tan(30) * 30;
/// Where y = D = 10 meets the line through the origin at -G/2 degrees, G = 60.
const double kCentreX = -10 / Tan(30);

const Device kDevices[] = {
    {"chuck",
     {"s102=h 100.000000", "s103=v -50.000000", "p100=s100 s101",
      "k30000 p100 as100 ts103 ts102 as101 p100 ek"},
     "del s100>103 p100",
     {{0, 0}, {-50, 0}, {-50, 100}, {0, 100}}},
    {"chuck with bore",
     {"s102=h 100.000000", "s103=v -50.000000", "s104=h 20.000000", "p100=s101 s104",
      "k30000 p100 as104 ts103 ts102 as101 p100 ek", "del s104"},
     "del s100>103 p100",
     {{0, 20}, {-50, 20}, {-50, 100}, {0, 100}}},
    {"collet",
     {"s102=h 30.000000", "s103=v -20.000000", "s104=h 45.000000", "s105=v -70.000000", "s106=h 12.500000",
      "p100=s106 s101", "k30000 p100 as106 ts105 ts104 as103 ts102 ch4.000000 as101 p100 ek"},
     "del s100>106 p100",
     {{0, 12.5}, {-70, 12.5}, {-70, 45}, {-20, 45}, {-20, 30}, {-4, 30}, {0, 26}}},
    {"mandrel",
     {"s102=h 10.000000", "s103=v -20.000000", "s104=h 15.000000", "s105=v -40.000000", "s106=h 22.000000",
      "s107=v -60.000000", "s108=h 50.000000", "s109=v -90.000000", "p100=s100 s101",
      "k30000 p100 as100 ts109 ts108 as107 ts106 ts105 ts104 as103 ts102 as101 p100 ek"},
     "del s100>109 p100",
     {{0, 0},
      {-90, 0},
      {-90, 50},
      {-60, 50},
      {-60, 22},
      {-40, 22},
      {-40, 15},
      {-20, 15},
      {-20, 10},
      {0, 10}}},
    {"face driver",
     {"s103=h 20.000000", "s107=v -10.000000", "p100=s103 s107", "s102=b135.000000 p100", "s104=v -30.000000",
      "s105=h 60.000000", "s106=v -80.000000", "p100=s100 s101",
      "k30000 p100 as100 ts106 ts105 as104 ts103 as102 as101 p100 ek"},
     "del s100>107 p100",
     {{0, 0}, {-80, 0}, {-80, 60}, {-30, 60}, {-30, 20}, {-10, 20}, {0, 10}}},
    {"jaw 5",
     {"s101=v 60.000000", "s102=18.000000 ls100", "s103=20.000000 ls101", "s104=30.000000 ls100",
      "s105=35.000000 ls101", "s106=50.000000 ls100", "s107=60.000000 ls101", "p100=s100 s101",
      "k30000 p100 as100 ts107 ts106 as105 ts104 as103 ts102 as101 p100 ek"},
     "del s100>107 p100",
     {{60, 0}, {0, 0}, {0, 50}, {25, 50}, {25, 30}, {40, 30}, {40, 18}, {60, 18}}},
    {"jaw 6",
     {"s101=v 60.000000", "s102=50.000000 ls100", "s103=60.000000 ls101", "s104=40.000000 ls101",
      "s105=20.000000 ls100", "s106=25.000000 ls101", "s107=38.000000 ls100", "p100=s100 s103",
      "k30000 p100 ts103 ts102 as101 as107 as106 as105 as104 as100 p100 ek"},
     "del s100>107 p100",
     {{0, 0}, {0, 50}, {60, 50}, {60, 38}, {35, 38}, {35, 20}, {20, 20}, {20, 0}}},
    {"jaw 7",
     {"s102=50.000000 ls100", "s103=60.000000 rs101", "s104=35.000000 ls100", "s105=25.000000 rs101",
      "p100=s100 s101", "k30000 p100 ts101 ts102 as103 as104 as105 as100 p100 ek"},
     "del s100>105 p100",
     {{0, 0}, {0, 50}, {60, 50}, {60, 35}, {25, 35}, {25, 0}}},
    {"jaw 8",
     {"s102=50.000000 ls100", "s103=25.000000 rs101", "s104=15.000000 ls100", "s105=60.000000 rs101",
      "p100=s100 s101", "k30000 p100 ts101 ts102 as103 ts104 as105 as100 p100 ek"},
     "del s100>105 p100",
     {{0, 0}, {0, 50}, {25, 50}, {25, 15}, {60, 15}, {60, 0}}},
    {"jaw 9",
     {"s102=50.000000 ls100", "s103=60.000000 rs101", "p100=s100 s101",
      "k30000 p100 ts101 ts102 as103 as100 p100 ek"},
     "del s100>103 p100",
     {{0, 0}, {0, 50}, {60, 50}, {60, 0}}},
    {"jaw 10",
     {"s102=50.000000 ls100", "s104=60.000000 rs101", "s105=25.000000 rs101", "s106=15.000000 ls100",
      "p101=s102 s105", "p102=s104 s106", "p100=s100 s101", "s103=p101 p102",
      "k30000 p100 ts101 ts102 ts103 as104 as100 p100 ek"},
     "del s100>106 p100>102",
     {{0, 0}, {0, 50}, {25, 50}, {60, 15}, {60, 0}}},
    {"jaw 11",
     {"s102=50.000000 ls100", "s103=25.000000 rs101", "s104=12.000000 ls100", "s105=45.000000 rs101",
      "s106=20.000000 ls100", "s107=60.000000 rs101", "p100=s100 s101",
      "k30000 p100 ts101 ts102 as103 ts104 ts105 ts106 as107 as100 p100 ek"},
     "del s100>107 p100",
     {{0, 0}, {0, 50}, {25, 50}, {25, 12}, {45, 12}, {45, 20}, {60, 20}, {60, 0}}},
    {"jaw 12",
     {"s102=50.000000 ls100", "s103=60.000000 rs101", "s104=30.000000 ls100", "s105=45.000000 rs101",
      "s106=38.000000 ls100", "s107=25.000000 rs101", "p100=s100 s101",
      "k30000 p100 ts101 ts102 as103 as104 ts105 as106 as107 as100 p100 ek"},
     "del s100>107 p100",
     {{0, 0}, {0, 50}, {60, 50}, {60, 30}, {45, 30}, {45, 38}, {25, 38}, {25, 0}}},
    {"centre 13",
     {"s100=h 0", "s101=v -100.000000", "s102=h 40.000000", "s107=v 0", "s108=80.000000ls107",
      "p101=s102 s108", "s103=b-30.000000 p101", "s104=50.000000 ls107", "s105=h 10.000000", "p102=s100 s107",
      "s106=b-30.000000 p102", "p100=s100 s101",
      "k30000 p100 ts101 ts102 ts103 as104 ts105 ts106 as100 p100 ek"},
     "del s100>108 p100>102",
     {{-100, 0}, {-100, 40}, {-80, 40}, {-50, kCentreY}, {-50, 10}, {kCentreX, 10}, {0, 0}}},
    {"centre 14",
     {"s100=h 0", "s101=v -100.000000", "s102=h 40.000000", "s107=v 0", "s108=80.000000ls107",
      "p101=s102 s108", "s103=b-30.000000 p101", "s104=50.000000 ls107", "s105=h 10.000000", "p102=s100 s107",
      "s106=b-30.000000 p102", "p100=s100 s101", "s109=h 55.000000", "s110=8.000000 rs101",
      "k30000 p100 ts101 ts109 as110 ts102 ts103 as104 ts105 ts106 as100 p100 ek"},
     "del s100>110 p100>102",
     {{-100, 0},
      {-100, 55},
      {-92, 55},
      {-92, 40},
      {-80, 40},
      {-50, kCentreY},
      {-50, 10},
      {kCentreX, 10},
      {0, 0}}},
};

class Devices : public LanguageTest, public testing::WithParamInterface<Device> {};

TEST_P(Devices, HaveTheOutlineThatIsPromised) {
  const Device& device = GetParam();
  DoAll({"win 0", "s100=h 0", "s101=v 0"});
  DoAll(device.lines);
  DoAll({device.cleanUp, "win 1"});

  const geometry::Kurve* const curve = board.FindContour(30000);
  ASSERT_NE(curve, nullptr);
  ASSERT_EQ(curve->nVertices, static_cast<int>(device.vertices.size()) + 1) << "with the first again";
  for (int i = 0; i < curve->nVertices; ++i) {
    geometry::spVertex vertex;
    curve->Get(i, vertex);
    const Vertex& promised = device.vertices[static_cast<std::size_t>(i) % device.vertices.size()];
    EXPECT_NEAR(vertex.p.x, promised.x, 1e-9) << i;
    EXPECT_NEAR(vertex.p.y, promised.y, 1e-9) << i;
    EXPECT_EQ(vertex.type, geometry::LINEAR) << i;
    EXPECT_FALSE(std::signbit(vertex.p.x) && vertex.p.x == 0) << i;
    EXPECT_FALSE(std::signbit(vertex.p.y) && vertex.p.y == 0) << i;
  }
  EXPECT_TRUE(board.workpieces.lines.empty());
  EXPECT_TRUE(board.workpieces.points.empty());
}

INSTANTIATE_TEST_SUITE_P(All, Devices, testing::ValuesIn(kDevices), [](const auto& device) {
  std::string name;
  for (const char c : std::string(device.param.name)) {
    if (c != ' ') name += c;
  }
  return name;
});

TEST_F(LanguageTest, TheStandByJawHasNoBlanksInItsLines) {
  DoAll({"win 0", "s100=h0", "s101=v0", "p100=s100 s101", "s102=h4.100000", "s103=v-2.500000",
         "k30001 p100 as100 ts103 ts102 as101 p100 ek", "del s100>103 p100", "win 1"});
  EXPECT_THAT(Vertices(30001), testing::ElementsAre("0 0", "-2.5 0", "-2.5 4.1", "0 4.1", "0 0"));
}

TEST_F(LanguageTest, AJawIsTurnedInPlace) {
  DoAll({"win 0", "s100=h 0", "s101=v 0", "s102=50 ls100", "s103=60 rs101", "p100=s100 s101",
         "k30001 p100 ts101 ts102 as103 as100 p100 ek", "set m30000", "rot m30000 x180", "rot m30000 z90",
         "copy k30001 m30000", "del m30000"});
  EXPECT_THAT(Vertices(30001), testing::ElementsAre("0 0", "50 0", "50 60", "0 60", "0 0"));
}

}  // namespace
}  // namespace vanzet::language
