#include <algorithm>
#include <cmath>
#include <set>

#include "catalogue_fixture.h"
#include "devices/kinds.h"
#include "devices/outline.h"
#include "macro/device_record.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

const char* const kSample = VANZET_SOURCE_DIR "/share/samples/mill-turn/clampdevice.cld";

/// The catalogue of the sample project, read from a copy.
class SampleCatalogue : public CatalogueTest {
 protected:
  SampleCatalogue() {
    WriteBytes(world.file, ReadBytes(kSample));
    EXPECT_TRUE(device.ReadFile());
  }

  template <class Use>
  void ForEachDevice(const Use& use) {
    for (std::int32_t type = 1; type <= 14; ++type) {
      for (const std::string& name : Names(device, type)) {
        SCOPED_TRACE(name);
        DeviceParams params;
        UnpackDeviceParams(params, device.ValueLineOf(name));
        use(name, params);
      }
    }
  }

  CDevice device;
};

/// Twice the area to the left of the way a, b, c.
double Turn(OutlineVertex a, OutlineVertex b, OutlineVertex c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool IsBetween(OutlineVertex a, OutlineVertex b, OutlineVertex point) {
  return std::min(a.x, b.x) <= point.x && point.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= point.y &&
         point.y <= std::max(a.y, b.y);
}

/// True when the sides have a point in common, an end point too.
bool Meet(OutlineVertex a, OutlineVertex b, OutlineVertex c, OutlineVertex d) {
  const double turns[] = {Turn(a, b, c), Turn(a, b, d), Turn(c, d, a), Turn(c, d, b)};
  if (turns[0] * turns[1] < 0 && turns[2] * turns[3] < 0) return true;
  return (turns[0] == 0 && IsBetween(a, b, c)) || (turns[1] == 0 && IsBetween(a, b, d)) ||
         (turns[2] == 0 && IsBetween(c, d, a)) || (turns[3] == 0 && IsBetween(c, d, b));
}

/// True when no side of the closed outline meets another but the next one, at their corner alone.
bool IsSimple(const std::vector<OutlineVertex>& outline) {
  const std::size_t n = outline.size();
  const auto at = [&](std::size_t i) { return outline[i % n]; };
  for (std::size_t i = 0; i < n; ++i) {
    if (Turn(at(i), at(i + 1), at(i + 2)) == 0) return false;
    for (std::size_t other = i + 2; other < n && other + 1 < n + i; ++other) {
      if (Meet(at(i), at(i + 1), at(other), at(other + 1))) return false;
    }
  }
  return n >= 3;
}

TEST(IsSimple, TellsOutlinesThatCrossThemselves) {
  EXPECT_TRUE(IsSimple({{0, 0}, {4, 0}, {4, 4}, {0, 4}}));
  EXPECT_FALSE(IsSimple({{0, 0}, {4, 4}, {4, 0}, {0, 4}})) << "a bow tie";
  EXPECT_FALSE(IsSimple({{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}})) << "a corner on a side";
  EXPECT_FALSE(IsSimple({{0, 0}, {4, 0}, {2, 0}})) << "a way back on itself";
  // A mandrel whose steps stand in the wrong order.
  EXPECT_FALSE(IsSimple(
      OutlineOf({.type = 3, .A = 45, .B = 50, .C = 36, .D = 44, .E = 56, .F = 12, .G = 18, .H = 27})));
}

TEST_F(SampleCatalogue, HasDevicesOfEveryParametricType) {
  for (std::int32_t type = 1; type <= 14; ++type) EXPECT_FALSE(Names(device, type).empty()) << type;
}

TEST_F(SampleCatalogue, IsTextAsTheCatalogueWritesIt) {
  std::string text;
  std::set<std::string> names;
  ASSERT_TRUE(device.WriteFile());
  EXPECT_EQ(ReadBytes(world.file), ReadBytes(kSample));
  ForEachDevice([&](const std::string& name, const DeviceParams& params) {
    EXPECT_TRUE(names.insert(name).second) << "a name stands once";
    std::string line;
    PackDeviceParams(params, line);
    EXPECT_EQ(line, device.ValueLineOf(name));
  });
  EXPECT_EQ(std::ranges::count(ReadBytes(kSample), '\n'), static_cast<std::ptrdiff_t>(2 * names.size()));
}

TEST_F(SampleCatalogue, GivesEveryValueThatATypeHas) {
  ForEachDevice([](const std::string&, const DeviceParams& params) {
    for (const devices::Letter& each : devices::LettersOf(params.type)) {
      EXPECT_GT(ValueOf(params, each.letter), 0) << each.letter;
    }
  });
}

TEST_F(SampleCatalogue, HasOutlinesThatDoNotCrossThemselves) {
  ForEachDevice(
      [](const std::string&, const DeviceParams& params) { EXPECT_TRUE(IsSimple(OutlineOf(params))); });
}

TEST_F(SampleCatalogue, HasOutlinesOnTheSideOfTheirWorkingFace) {
  ForEachDevice([](const std::string&, const DeviceParams& params) {
    const bool isJaw = devices::IsJaw(params.type);
    double reach = 0;
    for (const auto& [x, y] : OutlineOf(params)) {
      EXPECT_GE(isJaw ? x : -x, 0);
      EXPECT_GE(y, 0) << "spun around the axis, or resting on it";
      reach = std::max(reach, std::abs(x));
    }
    EXPECT_GT(reach, 20);
    EXPECT_LT(reach, 500) << "millimetres";
  });
}

TEST_F(SampleCatalogue, CutsTheChamfersOfItsCollets) {
  for (const std::string& name : Names(device, 2)) {
    DeviceParams params;
    UnpackDeviceParams(params, device.ValueLineOf(name));
    EXPECT_EQ(OutlineOf(params).size(), 7U) << name;
  }
}

}  // namespace
}  // namespace vanzet::test
