#include <regex>
#include <set>
#include <sstream>

#include "api/host_fixture.h"
#include "closed_loop/sensible_devices.h"
#include "project/definition.h"
#include "simulation/rebuild.h"
#include "store/billet_vdm.h"
#include "store/clamp_records.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::IsEmpty;

constexpr std::int32_t kSpur = 0;
constexpr DeviceParams kChuck = {.type = 1, .A = 100, .B = 60, .C = 25};
constexpr DeviceParams kSoftJaw = {.type = 9, .A = 40, .B = 25, .D = 18};
constexpr DeviceParams kCenter = {.type = 13, .A = 140, .B = 90, .C = 40, .D = 12, .E = 20, .F = 30, .G = 60};

/// One device of each type that is spun.
constexpr DeviceParams kSpun[] = {
    kChuck,
    {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2},
    {.type = 3, .A = 40, .B = 120, .C = 20, .D = 40, .E = 60, .F = 15, .G = 20, .H = 30},
    {.type = 4, .A = 40, .B = 60, .C = 20, .D = 5, .F = 15, .I = 45},
};

/// What the simulation finds of a device or a jaw: an operation's items behind the labels, and those of its
/// outline.
constexpr std::size_t kOutlines = 6;  // from an operation to that of its outline

/// The module's generators over the workbench, with so coarse a mesh that its facets can be read.
class SimulationData : public HostTest {
 protected:
  SimulationData() : HostTest("[mesh]\nchord = 100\nangle = 90\n") {
    BilletVdm(BilletVdm::VdmNumber(kSpur)).ReOrg([](BilletVdm&, bool) {});
  }

  static void Clamp(std::int32_t spindle, const DeviceParams& device, const DeviceParams& jaw,
                    bool hasSubSpindle = true) {
    WriteClampDevice(kSpur, spindle, "device", device);
    WriteJaw(kSpur, spindle, "jaw", jaw);
    BuildSpunDevice(kSpur, spindle, hasSubSpindle, device);
    RebuildSimulation(kSpur, spindle);
  }

  project::Definition Stored() {
    return *project::ReadDefinition(*host->store.Snapshot(project->DefinitionOf(kSpur)));
  }

  /// The items of an operation and of its outline, section by section.
  std::string DataOf(std::size_t operation) {
    const project::Definition definition = Stored();
    std::string text;
    for (const std::size_t i : {operation, operation + kOutlines}) {
      const auto& sections = definition.operations.at(i).sections;
      for (std::size_t section = 1; section < sections.size(); ++section) {
        text += "operation " + std::to_string(i) + ", section " + std::to_string(section) + "\n";
        for (const std::string& item : sections[section]) text += item.ends_with('\n') ? item : item + "\n";
      }
    }
    return text;
  }

  /// The same of a spun device. How its facets are cut depends on the last digits of a sine, so their points
  /// stand in order and the triangles are counted.
  std::string SpunDataOf(std::size_t operation) {
    static const std::regex kPoint("            -?[0-9.]+ -?[0-9.]+ -?[0-9.]+,?"),
        kTriangle("            [0-9][0-9 ]* -1,?");
    std::istringstream data(DataOf(operation));
    std::multiset<std::string> points;
    std::string text;
    int triangles = 0;
    for (std::string line; std::getline(data, line);) {
      if (std::regex_match(line, kPoint)) {
        points.insert(line.substr(0, line.find(',')) + "\n");
      } else if (std::regex_match(line, kTriangle)) {
        ++triangles;
      } else {
        text += line + "\n";
      }
    }
    for (const std::string& point : points) text += point;
    return text + std::to_string(triangles) + " triangles\n";
  }

  /// Whether an operation and its outline hold nothing.
  bool IsEmptyAt(std::size_t operation) {
    const project::Definition definition = Stored();
    for (const std::size_t i : {operation, operation + kOutlines}) {
      const auto& sections = definition.operations.at(i).sections;
      if (std::any_of(sections.begin() + 1, sections.end(), [](const auto& items) { return !items.empty(); }))
        return false;
    }
    return true;
  }

  static std::string FileFor(const char* what, std::int32_t type) {
    return "closed_loop/simulation_" + std::string(what) + "_" + std::to_string(type) + ".txt";
  }
};

TEST_F(SimulationData, OfWhatIsSpunIsThis) {
  for (const DeviceParams& device : kSpun) {
    Clamp(0, device, {});
    EXPECT_GOLDEN(SpunDataOf(5), FileFor("device", device.type));
  }
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(SimulationData, OfEachKindOfJawIsThis) {
  SensibleDevices devices(20261122);
  for (std::int32_t type = 5; type <= 12; ++type) {
    Clamp(0, kChuck, devices.Next(type));
    EXPECT_GOLDEN(DataOf(6), FileFor("jaw", type));
  }
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(SimulationData, OfStandInsIsThis) {
  for (const DeviceParams& device : kSpun) {
    Clamp(0, device, {});
    EXPECT_GOLDEN(DataOf(6), FileFor("stand_in_under", device.type));
  }
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(SimulationData, OfTheSubSpindleIsThatOfTheMainOne) {
  for (const DeviceParams& device : kSpun) {
    Clamp(0, device, kSoftJaw);
    Clamp(1, device, kSoftJaw);
    const project::Definition definition = Stored();
    for (const std::size_t main : {5U, 6U}) {
      EXPECT_EQ(definition.operations[main].sections, [&] {
        auto sub = definition.operations[main + 2].sections;
        sub[0] = definition.operations[main].sections[0];
        return sub;
      }()) << device.type;
      EXPECT_EQ(definition.operations[main + kOutlines].sections[1],
                definition.operations[main + 2 + kOutlines].sections[1])
          << device.type;
    }
  }
}

TEST_F(SimulationData, OfACenterIsThisWithASubSpindle) {
  DeviceParams center = kCenter;
  for (const std::int32_t type : {13, 14}) {
    center.type = type;
    BuildSpunDevice(kSpur, 1, true, center);
    EXPECT_GOLDEN(SpunDataOf(9), FileFor("center", type));
  }
  EXPECT_TRUE(IsEmptyAt(7)) << "the place of the sub spindle's device";
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(SimulationData, OfACenterIsInTheSubSpindlesPlaceWhereThereIsNone) {
  BuildSpunDevice(kSpur, 1, true, kCenter);
  const project::Definition own = Stored();
  ASSERT_TRUE(host->store.Replace(project->DefinitionOf(kSpur), vdm::Vdm()));
  BilletVdm(BilletVdm::VdmNumber(kSpur)).ReOrg([](BilletVdm&, bool) {});
  BuildSpunDevice(kSpur, 1, false, kCenter);
  const project::Definition shared = Stored();
  for (const std::size_t section : {1U, 2U}) {
    EXPECT_EQ(shared.operations[7].sections.at(section), own.operations[9].sections.at(section));
  }
  EXPECT_EQ(shared.operations[15].sections[1], own.operations[15].sections[1]) << "its outline has one place";
  EXPECT_TRUE(shared.operations[9].sections.size() < 2 || shared.operations[9].sections[1].empty());
}

TEST_F(SimulationData, OfAnOldDefinitionIsMadeByItsUpgrade) {
  Clamp(0, kChuck, kSoftJaw);
  Clamp(1, kChuck, kSoftJaw);
  const std::string main = DataOf(6), sub = DataOf(8);
  // The oldest definitions have no version, and nothing but what holds the work.
  constexpr std::size_t kOldOperations = 3;
  auto copy = host->store.Snapshot(project->DefinitionOf(kSpur))->Copy();
  vdm::Vdm& old = *copy;
  old.Remove(kOldOperations, old.Size() - kOldOperations);
  old.Remove(0, 1);
  vdm::Record head;
  head.Insert(0, "1 1 1 1");
  head.Insert(1, "Billet definition");
  old.Insert(0, head);
  ASSERT_TRUE(host->store.Replace(project->DefinitionOf(kSpur), old));
  BilletVdm(BilletVdm::VdmNumber(kSpur)).ReOrg(RebuildJawSimulation);
  EXPECT_EQ(DataOf(6), main);
  EXPECT_EQ(DataOf(8), sub);
}

}  // namespace
}  // namespace vanzet::test
