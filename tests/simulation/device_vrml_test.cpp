#include "simulation/device_vrml.h"

#include <utility>

#include "platform/host_extensions.h"
#include "simulation/simulation_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DeviceVrml : public SimulationTest {
 protected:
  bool Store(bool isSub, bool subSpindleAvailable, std::int32_t type, double offset) {
    BilletVdm definition(kVdm);
    EXPECT_TRUE(definition.Open());
    const bool isStored =
        StoreDeviceVrml(definition, isSub, subSpindleAvailable, type, File().string(), offset);
    definition.Close();
    return isStored;
  }
};

TEST_F(DeviceVrml, WrapsTheFacetsAndKeepsThePlacement) {
  WriteBytes(File(), kFacets);
  EXPECT_TRUE(Store(false, true, 1, 30));
  EXPECT_GOLDEN(Text(Section(5, 1)), "simulation/chuck.wrl");
  EXPECT_THAT(Section(5, 2), ElementsAre(" 0 0 30.000000\n"));
}

TEST_F(DeviceVrml, HoldsALineAnItem) {
  WriteBytes(File(), kFacets);
  Store(false, true, 1, 30);
  for (const std::string& item : Section(5, 1)) EXPECT_EQ(item.find('\n'), item.size() - 1) << item;
}

TEST_F(DeviceVrml, GoesToTheOperationOfItsKindAndSpindle) {
  struct Place {
    std::int32_t firstType, lastType;
    bool isSub, subSpindleAvailable;
    std::size_t operation, placement;
  };
  for (const Place& place :
       {Place{1, 4, false, true, 5, 2}, Place{1, 4, true, true, 7, 2}, Place{5, 12, false, false, 6, 3},
        Place{5, 12, true, true, 8, 3}, Place{13, 14, false, true, 9, 2}, Place{13, 14, true, true, 9, 2},
        Place{13, 14, false, false, 7, 2}}) {
    WriteBytes(File(), kFacets);
    for (std::int32_t type = place.firstType; type <= place.lastType; ++type) {
      EXPECT_TRUE(Store(place.isSub, place.subSpindleAvailable, type, type));
      EXPECT_THAT(Section(place.operation, 1), SizeIs(kVrmlLines)) << type;
      EXPECT_THAT(Section(place.operation, place.placement),
                  ElementsAre(" 0 0 " + std::to_string(type) + ".000000\n"));
    }
  }
}

std::string reported;

void TakeFault(const char* text, const char* file, std::int32_t, std::int32_t, const char*, std::int32_t) {
  reported = std::string(file) + ": " + text;
}

TEST_F(DeviceVrml, ReportsAFileThatIsThereAndCannotBeRead) {
  const auto former = std::exchange(platform::extensionFinder, [](void*, const char* name) -> void* {
    return std::string_view(name) == "VanzetReportFault" ? reinterpret_cast<void*>(TakeFault) : nullptr;
  });
  reported.clear();
  Store(false, true, 1, 30);
  EXPECT_EQ(reported, "") << "the host that writes no file has its reason";
  std::filesystem::create_directory(File());
  Store(false, true, 1, 30);
  EXPECT_EQ(reported, File().string() + ": cannot be read");
  platform::extensionFinder = former;
}

TEST_F(DeviceVrml, OfATypeWithoutOperationIsRefusedAndChangesNothing) {
  WriteBytes(File(), kFacets);
  const auto before = host.vdms[kVdm].records;
  for (const std::int32_t type : {-1, 0, 15, 103, 104, 115})
    EXPECT_FALSE(Store(false, true, type, 1)) << type;
  EXPECT_EQ(host.vdms[kVdm].records, before);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(DeviceVrml, IsRefusedWhenTheOperationIsMissing) {
  host.vdms[kVdm].records.resize(5);
  EXPECT_FALSE(Store(false, true, 1, 1));
  EXPECT_THAT(host.TakeBoxes(), SizeIs(1));
}

TEST_F(DeviceVrml, IsRefusedWhenTheHeaderCannotBeRead) {
  host.vdms[kVdm].records[5][0] = "no header";
  const auto before = host.vdms[kVdm].records;
  EXPECT_FALSE(Store(false, true, 1, 1));
  EXPECT_EQ(host.vdms[kVdm].records, before);
}

TEST_F(DeviceVrml, IsEmptyWithoutAFileButHasItsPlacement) {
  WriteBytes(File(), kFacets);
  Store(false, true, 1, 30);
  std::filesystem::remove(File());
  EXPECT_TRUE(Store(false, true, 1, 12.5));
  EXPECT_THAT(Section(5, 1), IsEmpty());
  EXPECT_THAT(Section(5, 2), ElementsAre(" 0 0 12.500000\n"));
}

TEST_F(DeviceVrml, HasHeadAndTailButNoPointsOfAFileWithoutThem) {
  WriteBytes(File(), "#VRML V2.0 utf8\nShape { }\n");
  EXPECT_TRUE(Store(false, true, 1, 30));
  const std::string text = Text(Section(5, 1));
  EXPECT_NE(text.find("           solid FALSE\n         }\n       }\n     ]\n   },\n   DEF PLG_0"),
            std::string::npos);
}

TEST_F(DeviceVrml, IsReplacedWhole) {
  WriteBytes(File(), kFacets);
  Store(false, true, 1, 30);
  const auto first = host.vdms[kVdm].records[5];
  Store(false, true, 1, 30);
  EXPECT_EQ(host.vdms[kVdm].records[5], first);
}

TEST_F(DeviceVrml, LeavesTheFileStanding) {
  WriteBytes(File(), kFacets);
  Store(false, true, 1, 30);
  EXPECT_EQ(ReadBytes(File()), kFacets);
}

TEST_F(DeviceVrml, IsMadeByTheseCalls) {
  WriteBytes(File(), kFacets);
  host.TakeCalls();
  Store(true, true, 7, 0);
  EXPECT_GOLDEN(Lines(host.TakeCalls()), "simulation/store_jaw_vrml.trace");
}

}  // namespace
}  // namespace vanzet::test
