#include "modeller/device_package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "modeller/exchange/properties.h"
#include "modeller/foreign_files.h"
#include "modeller/solids.h"
#include "support/device_package.h"
#include "support/temporary_folder.h"
#include "support/zip_text.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;

/// "OAL, 71EB = 105. mm", a line a property.
std::string TextOf(const PackageItem& item) {
  std::string text = item.maker + " | " + item.order + " | " + item.name + "\n";
  for (const PackageProperty& property : item.properties) {
    std::string names;
    for (const std::string& name : property.names) names += (names.empty() ? "" : ", ") + name;
    text += names + " = " + property.value + (property.unit.empty() ? "" : " " + property.unit) + "\n";
  }
  return text;
}

std::string FaultOf(const Result<PackageItem>& item) {
  return item ? "" : item.fault().Message();
}

TEST(DeviceProperties, AreReadFromPart21) {
  const auto item = ItemOfPart21(kChuckInPart21);
  ASSERT_TRUE(item) << item.fault().Message();
  EXPECT_EQ(TextOf(*item),
            "Kühn | KF-250-A6 | Chuck 250\n"
            "length over all, 71EBDBF5060E6, OAL = 105. mm\n"
            "BD, nominal value = 250.0 mm\n"
            "WT = 38.5 kg\n"
            "BHD = 70. mm\n"
            "GRDMAT = steel; 'hard'\n");
}

TEST(DeviceProperties, AreReadFromXml) {
  const auto item = ItemOfXml(kChuckInXml);
  ASSERT_TRUE(item) << item.fault().Message();
  EXPECT_EQ(TextOf(*item), "Kühn & Co | KF-250-A6 | Chuck <250>\nOAL = 4 inch\nBD = 250\n");
}

TEST(DeviceProperties, RefuseABrokenPart21) {
  const std::string head = "ISO-10303-21;\nDATA;\n", end = "ENDSEC;\nEND-ISO-10303-21;\n";
  EXPECT_EQ(FaultOf(ItemOfPart21("PK")), "1: expected 'ISO-10303-21;'");
  EXPECT_THAT(FaultOf(ItemOfPart21(head + "#1=UNIT('mm');\n")), HasSubstr("is cut short"));
  EXPECT_EQ(FaultOf(ItemOfPart21(head + "#1=UNIT('mm;\n")), "3: the text has no end");
  EXPECT_EQ(FaultOf(ItemOfPart21(head + "#1 UNIT('mm');\n" + end)), "3: expected '=', found 'U'");
  EXPECT_EQ(FaultOf(ItemOfPart21(head + "#x=UNIT('mm');\n" + end)),
            "3: expected the number of an instance, found 'x'");
  EXPECT_THAT(FaultOf(ItemOfPart21(head + "#1=UNIT('mm');\n#1=UNIT('kg');\n" + end)),
              HasSubstr("the instance #1 is here twice"));
  EXPECT_THAT(FaultOf(ItemOfPart21(head + "#1=UNIT(" + std::string(200, '(') + ");\n" + end)),
              HasSubstr("more than 100 levels deep"));
}

TEST(DeviceProperties, RefuseABrokenXml) {
  EXPECT_EQ(FaultOf(ItemOfXml("text")), "1: expected XML");
  EXPECT_EQ(FaultOf(ItemOfXml("<a>\n<b>\n")), "3: is cut short in 'b'");
  EXPECT_EQ(FaultOf(ItemOfXml("<a>\n</b>")), "2: an element ends that has not begun, 'b'");
  EXPECT_EQ(FaultOf(ItemOfXml("<a/><b/>")), "1: has a second root, 'b'");
  EXPECT_THAT(FaultOf(ItemOfXml("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>")), HasSubstr("document type"));
  EXPECT_THAT(FaultOf(ItemOfXml("<a>&b;</a>")), HasSubstr("a character that does not exist, '&b;'"));
  std::string deep;
  for (int i = 0; i < 200; ++i) deep += "<a>";
  EXPECT_THAT(FaultOf(ItemOfXml(deep)), HasSubstr("more than 100 levels deep"));
}

class DevicePackages : public testing::Test {
 protected:
  Result<DevicePackage> ReadZip(const ZipContent& content) {
    EXPECT_TRUE(WriteZip(file_, content));
    return ReadDevicePackage(file_, TestExchange());
  }

  /// The fault without the name of the package.
  std::string Refusal(const Result<DevicePackage>& package) {
    if (package) return "";
    EXPECT_EQ(package.fault().file, file_.string());
    return package.fault().text;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "chuck.zip";
};

TEST_F(DevicePackages, HaveDevicesAndModels) {
  const auto package = ReadZip({{"product_data/b.P21", kChuckInPart21},
                                {"product_data/a.xml", kChuckInXml},
                                {"about.xml", "<About><Maker>K</Maker></About>"},
                                {"picture.png", "\x89PNG"},
                                {"models/b.stp", "ISO"}});
  ASSERT_TRUE(package) << package.fault().Message();
  ASSERT_EQ(package->items.size(), 2U);
  EXPECT_EQ(package->items[0].file, "product_data/a.xml");
  EXPECT_EQ(package->items[1].file, "product_data/b.P21");
  EXPECT_EQ(package->items[1].properties.size(), 5U);
  ASSERT_EQ(package->models.size(), 1U);
  EXPECT_EQ(package->models[0].file, "models/b.stp");
  EXPECT_EQ(package->models[0].step, "ISO");
}

TEST_F(DevicePackages, LeadNowhereElse) {
  for (const char* const name : {"../x.p21", "a/../../x.p21", "/etc/x.p21", "C:x.p21", "a\\..\\x.p21"}) {
    EXPECT_THAT(Refusal(ReadZip({{name, kChuckInPart21}})), HasSubstr("leads out of the package")) << name;
  }
}

TEST_F(DevicePackages, HaveLimits) {
  ZipContent many = {{"a.p21", kChuckInPart21}};
  for (int i = 0; i < 1000; ++i) many["f" + std::to_string(i)] = "";
  EXPECT_EQ(Refusal(ReadZip(many)), "has more than 1000 files");
  const std::string large(std::size_t{257} << 20U, '0');
  EXPECT_EQ(Refusal(ReadZip({{"a.step", large}})), "its files are larger than 256 MiB");
}

TEST_F(DevicePackages, AreRefusedWhenBroken) {
  EXPECT_EQ(Refusal(ReadZip({{"readme.txt", "x"}})),
            "holds no properties of a device, in a .p21 or .xml file");
  EXPECT_EQ(Refusal(ReadZip({{"a/b.p21", "ISO-10303-21;\nDATA;\n#1 UNIT"}})),
            "its file 'a/b.p21', line 3: expected '=', found 'U'");
  ASSERT_TRUE(ReadZip({{"a.p21", kChuckInPart21}}));
  const std::string whole = ReadBytes(file_);
  WriteBytes(file_, whole.substr(0, whole.size() / 2));
  EXPECT_THAT(Refusal(ReadDevicePackage(file_, TestExchange())), HasSubstr("not a readable ZIP file: "));
  std::string spoilt = whole;
  spoilt[100] = static_cast<char>(spoilt[100] ^ 1);
  WriteBytes(file_, spoilt);
  EXPECT_THAT(Refusal(ReadDevicePackage(file_, TestExchange())),
              HasSubstr("its file 'a.p21' cannot be unpacked"));
  WriteBytes(file_, "");
  EXPECT_THAT(Refusal(ReadDevicePackage(file_, TestExchange())), HasSubstr("not a readable ZIP file: "));
  std::filesystem::remove(file_);
  EXPECT_EQ(Refusal(ReadDevicePackage(file_, TestExchange())), "does not exist");
}

TEST_F(DevicePackages, HaveModelsThatAreChecked) {
  WriteStep(Brick(10, 20, 30), folder_ / "brick.step");
  EXPECT_TRUE(CheckModel({"m/brick.stp", ReadBytes(folder_ / "brick.step")}, file_, TestExchange()));
  const auto refused = CheckModel({"m/brick.stp", "not STEP"}, file_, TestExchange());
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.fault().Message(), HasSubstr("chuck.zip: 'm/brick.stp': not a readable STEP file"));
}

}  // namespace
}  // namespace vanzet::modeller
