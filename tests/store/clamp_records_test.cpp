#include "store/clamp_records.h"

#include "macro/device_record.h"
#include "store/record_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const DeviceParams kChuck = {.type = 1, .A = 80, .B = 50.25, .C = 12.123456};
const DeviceParams kCenter = {.type = 13, .A = 120, .B = 80, .C = 100, .D = 10, .E = 60, .F = 20, .G = 60};
const std::string kChuckText =
    "1 80.000000 50.250000 12.123456 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000";
const std::string kNoDeviceText =
    "0 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000";

class ClampRecords : public RecordTest {
 protected:
  std::string name = "before";
  DeviceParams params = {.type = 7, .A = 1};
  bool inner = true;
  std::int32_t jaws = 7;
};

TEST_F(ClampRecords, OfANewDefinitionAreThoseOfNoDevice) {
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), 0);
  EXPECT_EQ(name, "0");
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_EQ(ReadJaw(0, 1, name, params), 0);
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), 0);
  EXPECT_FALSE(inner);
  EXPECT_EQ(jaws, 3);
  EXPECT_EQ(ReadCenter(0, true, name, params), -1);
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ClampRecords, KeepTheirPlacesInTheOperationOfTheSpindle) {
  EXPECT_EQ(WriteClampDevice(0, 0, "Chuck 160", kChuck), 0);
  EXPECT_EQ(WriteClampOptions(0, 0, true, 4), 0);
  EXPECT_EQ(WriteJaw(0, 0, "Jaw", {.type = 9, .A = 30, .B = 20, .D = 5}), 0);
  EXPECT_THAT(Items(1), ElementsAre("2 1 4 1 3 2 4", "Main Spindle", "Chuck 160", kChuckText, "1 4", "Jaw",
                                    "9 30.000000 20.000000 0.000000 5.000000 0.000000 0.000000 0.000000 "
                                    "0.000000 0.000000 0.000000",
                                    "MainBillet", "0", "0", "0"));
  EXPECT_THAT(Items(2), ElementsAre("2 1 4 1 3 2 4", "Sub Spindle", "0", "0", "0", "0", "0", "SubBillet", "0",
                                    "0", "0"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ClampRecords, OfAnyOtherSpindleAreTheSubSpindles) {
  EXPECT_EQ(WriteClampDevice(0, 1, "one", kChuck), 0);
  EXPECT_EQ(Items(2)[2], "one");
  EXPECT_EQ(WriteClampDevice(0, -7, "other", kChuck), 0);
  EXPECT_EQ(Items(2)[2], "other");
  EXPECT_EQ(Items(1)[2], "0");
  EXPECT_EQ(WriteClampOptions(0, 2, false, 16), 0);
  EXPECT_EQ(Items(2)[4], "0 16");
}

TEST_F(ClampRecords, ReadBackWhatWasWritten) {
  for (const std::int32_t spindle : {0, 1}) {
    WriteClampDevice(0, spindle, "D:\\own\\chuck.vdm", {.type = 103, .B = 3.5});
    WriteJaw(0, spindle, "Backe \xC3\xBC", kChuck);
    WriteClampOptions(0, spindle, true, 4);
    EXPECT_EQ(ReadClampDevice(0, spindle, name, params), 0);
    EXPECT_EQ(name, "D:\\own\\chuck.vdm");
    EXPECT_EQ(params, (DeviceParams{.type = 103, .B = 3.5}));
    EXPECT_EQ(ReadJaw(0, spindle, name, params), 0);
    EXPECT_EQ(name, "Backe \xC3\xBC");
    EXPECT_EQ(params, kChuck);
    EXPECT_EQ(ReadClampOptions(0, spindle, inner, jaws), 0);
    EXPECT_TRUE(inner);
    EXPECT_EQ(jaws, 4);
  }
}

TEST_F(ClampRecords, KeepSixDecimals) {
  WriteClampDevice(0, 0, "a", {.type = 1, .A = 1.23456789});
  ReadClampDevice(0, 0, name, params);
  EXPECT_EQ(params.A, 1.234568);
}

TEST_F(ClampRecords, ReadAnOlderCodeOfAnOwnDeviceAsTheOneInUse) {
  Items(1)[2] = "D:\\own.vdm";
  Items(1)[3] = "110 4.000000 7.000000";
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), 0);
  EXPECT_EQ(params, (DeviceParams{.type = 104, .B = 7}));
}

TEST_F(ClampRecords, ClearAJawToNoNameAndNoType) {
  WriteJaw(0, 1, "Jaw", kChuck);
  EXPECT_EQ(ClearJaw(0, 1), 0);
  EXPECT_EQ(Items(2)[5], "");
  EXPECT_EQ(Items(2)[6], kNoDeviceText);
  EXPECT_EQ(ReadJaw(0, 1, name, params), 0);
  EXPECT_EQ(name, "");
  EXPECT_EQ(params, DeviceParams{});
}

TEST_F(ClampRecords, KeepTheCenterInAnOperationOfItsOwn) {
  EXPECT_EQ(WriteCenter(0, true, "Center 60", kCenter), 0);
  EXPECT_EQ(Items(10)[2], "Center 60");
  EXPECT_EQ(Items(10)[4], "0") << "the spare item stays";
  EXPECT_EQ(ReadCenter(0, true, name, params), 0);
  EXPECT_EQ(name, "Center 60");
  EXPECT_EQ(params, kCenter);
}

TEST_F(ClampRecords, KeepTheCenterWithTheSubSpindleWhereThereIsNone) {
  EXPECT_EQ(WriteCenter(0, false, "Center 60", kCenter), 0);
  EXPECT_EQ(Items(2)[2], "Center 60");
  EXPECT_EQ(Items(10)[2], "0");
  EXPECT_EQ(ReadCenter(0, false, name, params), 0);
  EXPECT_EQ(params, kCenter);
}

TEST_F(ClampRecords, TakeOnlyACenterForOne) {
  for (std::int32_t type = 0; type <= 116; ++type) {
    Items(10)[3] = std::to_string(type);
    const bool isCenter = type == 13 || type == 14 || type == 115;
    EXPECT_EQ(ReadCenter(0, true, name, params), isCenter ? 0 : -1) << type;
  }
}

TEST_F(ClampRecords, OfAChuckInTheCentersPlaceFailWithTheChuckAsRead) {
  WriteClampDevice(0, 1, "Chuck", kChuck);
  EXPECT_EQ(ReadCenter(0, false, name, params), -1);
  EXPECT_EQ(name, "Chuck");
  EXPECT_EQ(params, kChuck);
}

TEST_F(ClampRecords, ReadDamagedTextsAsZeros) {
  Items(1)[3] = "chuck";
  Items(1)[4] = "x y";
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), 0);
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), 0);
  EXPECT_FALSE(inner);
  EXPECT_EQ(jaws, 3);
  Items(1)[4] = "1";
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), 0);
  EXPECT_TRUE(inner);
  EXPECT_EQ(jaws, 3) << "the count of jaws is missing";
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ClampRecords, OfASectionWithoutItemsFailWithABox) {
  Items(1) = {"2 1 3 1 0 0", "Main Spindle"};
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), -1);
  EXPECT_EQ(name, "before");
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_EQ(ReadJaw(0, 0, name, params), -1);
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 1 section 1 item 0 (0 based) out of range (0 items)"),
                          MillTurnBox("Operation 1 section 2 item 0 (0 based) out of range (0 items)")));
}

TEST_F(ClampRecords, OfAMissingOperationFailWithABox) {
  host.vdms[kVdm].records.resize(1);
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), -1);
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("Operation 1 (0 based) out of range (1 oprations)")));
  EXPECT_EQ(ReadCenter(0, true, name, params), -1);
  EXPECT_THAT(host.boxes, IsEmpty()) << "the centre asks first whether there is an operation";
}

TEST_F(ClampRecords, OfADamagedHeaderFail) {
  Items(1)[0] = "none";
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), -1);
  EXPECT_EQ(params, DeviceParams{});
}

TEST_F(ClampRecords, ReadTheValuesFromWhatStandsBehindTheName) {
  Items(1) = {"2 1 4 1 1 2 4", "Main Spindle", "Chuck", "5 1.0", "Jaw", "0", "0", "0", "0"};
  EXPECT_EQ(ReadClampDevice(0, 0, name, params), 0);
  EXPECT_EQ(params, (DeviceParams{.type = 5, .A = 1})) << "the jaw's section begins there";
}

TEST_F(ClampRecords, HaveNoOptionsInAnOlderDefinition) {
  Items(1) = {"2 1 2 1 2", "Main Spindle", "Chuck", "1 1.0"};
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), 0);
  EXPECT_FALSE(inner);
  EXPECT_EQ(jaws, 3);
  EXPECT_THAT(host.boxes, IsEmpty()) << "two items are no options";
  host.vdms[kVdm].records.resize(1);
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), 0) << "however the work went";
}

TEST_F(ClampRecords, OfNoDefinitionAreThoseOfNothingGiven) {
  host.vdms.clear();
  name = "as it was";
  for (const auto& read : {ReadClampDevice, ReadJaw}) {
    params = kChuck;
    EXPECT_EQ(read(0, 0, name, params), -1);
    EXPECT_EQ(params, DeviceParams{});
  }
  params = kChuck;
  EXPECT_EQ(ReadCenter(0, true, name, params), -1);
  EXPECT_EQ(params, DeviceParams{});
  EXPECT_EQ(name, "as it was");
  inner = true, jaws = 5;
  EXPECT_EQ(ReadClampOptions(0, 0, inner, jaws), -1);
  EXPECT_FALSE(inner);
  EXPECT_EQ(jaws, 3);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ClampRecords, MakeTheItemsThatAreMissingAfterABoxForEach) {
  Items(1) = {"2 1 1 1", "Main Spindle"};
  EXPECT_EQ(WriteClampDevice(0, 0, "Chuck", kChuck), 0);
  EXPECT_THAT(Items(1), ElementsAre("2 1 2 1 2", "Main Spindle", "Chuck", kChuckText));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 1 section 1 (0 based) out of range (1 sections)"),
                          MillTurnBox("Operation 1 section 1 item 0 (0 based) out of range (0 items)"),
                          MillTurnBox("Operation 1 section 1 item 1 (0 based) out of range (1 items)")));
}

TEST_F(ClampRecords, OfTheOtherSpursGoToTheirOwnDefinitions) {
  BilletVdm(kSecondSpurVdm).ReOrg([](BilletVdm&, bool) {});
  EXPECT_EQ(WriteClampDevice(1, 0, "second", kChuck), 0);
  EXPECT_EQ(host.ItemsOf(kSecondSpurVdm, 1)[2], "second");
  EXPECT_EQ(Items(1)[2], "0");
  EXPECT_EQ(ReadClampDevice(-1, 0, name, params), 0) << "no spur is chosen: the first";
  EXPECT_EQ(name, "0");
}

class DeviceItems : public StoreTest {
 protected:
  std::string name = "before";
  DeviceParams params = {.type = 7, .A = 1};
};

TEST_F(DeviceItems, AreReadFromAnOpenDefinition) {
  OpenOver({{"1 1 0"}, {"2 1 3 1 2 2", "Main", "Chuck", "1 80", "Jaw", "9 30"}, {"2 1 0"}});
  EXPECT_TRUE(vdm.ReadDeviceItems(0, name, params));
  EXPECT_EQ(name, "Chuck");
  EXPECT_EQ(params, (DeviceParams{.type = 1, .A = 80}));
  EXPECT_TRUE(vdm.ReadJawItems(0, name, params));
  EXPECT_EQ(name, "Jaw");
  EXPECT_EQ(params, (DeviceParams{.type = 9, .A = 30}));
  EXPECT_TRUE(vdm.IsOpen());
}

TEST_F(DeviceItems, StayAsTheyAreWhereThereAreNone) {
  OpenOver({{"1 1 0"}, {"2 1 1 1", "Main"}});
  EXPECT_FALSE(vdm.ReadDeviceItems(0, name, params));
  EXPECT_FALSE(vdm.ReadJawItems(1, name, params));
  EXPECT_EQ(name, "before");
  EXPECT_EQ(params, (DeviceParams{.type = 7, .A = 1}));
}

TEST_F(DeviceItems, AreReportedOnAClosedDefinition) {
  EXPECT_FALSE(vdm.ReadDeviceItems(0, name, params));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("IsOpValid: Vdm not open")));
}

}  // namespace
}  // namespace vanzet::test
