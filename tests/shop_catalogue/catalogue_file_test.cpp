#include "shop_catalogue/shop_fixture.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

using catalogue::Catalogue;
using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

TEST(Catalogue, HasTheDevicesWithTheirLines) {
  const Catalogue read = Catalogue::Read(kChuck + kOwn);
  ASSERT_EQ(read.entries().size(), 2U);
  EXPECT_EQ(read.entries()[0].params, ChuckOf(80, 90, 22.5));
  EXPECT_EQ(read.entries()[1].line, 3);
  EXPECT_EQ(read.Find("Own chuck")->params, (DeviceParams{.type = 103, .B = 55}));
  EXPECT_EQ(read.Find("chuck 160"), nullptr) << "names are compared exactly";
}

TEST(Catalogue, OfEqualNamesFindsTheFirst) {
  const Catalogue read = Catalogue::Read("A\n1 80 90 20\nA\n1 81 90 20\n");
  EXPECT_EQ(read.Find("A")->params.A, 80);
  EXPECT_THAT(read.Names(), ElementsAre("A"));
}

TEST(Catalogue, KeepsTheBytesOfDevicesThatAreNotChanged) {
  const std::string odd = "  odd \r\n1\t80   90 22.5 junk\r\n";
  Catalogue read = Catalogue::Read(odd + "Jaw\r\n9 38 62 12 24\r\nLast\r\n1 80 90 20");
  ASSERT_TRUE(read.Put("Jaw", {.type = 9, .A = 40, .B = 62, .C = 12, .D = 24}));
  EXPECT_TRUE(read.Remove("Last"));
  ASSERT_TRUE(read.Put("New", ChuckOf(80, 90, 20)));
  EXPECT_EQ(read.Text(),
            odd +
                "Jaw\r\n9 40.000000 62.000000 12.000000 24.000000 0.000000 0.000000 0.000000 0.000000 "
                "0.000000 0.000000\r\n"
                "New\r\n1 80.000000 90.000000 20.000000 0.000000 0.000000 0.000000 0.000000 0.000000 "
                "0.000000 0.000000\r\n");
}

TEST(Catalogue, EndsTheLastLineBeforeADeviceIsAdded) {
  Catalogue read = Catalogue::Read("Own chuck\n103 0 55");
  ASSERT_TRUE(read.Put("Other", {.type = 103, .B = 60}));
  EXPECT_EQ(read.Text(), "Own chuck\n103 0 55\nOther\n103 0.000000 60.000000\n");
}

TEST(Catalogue, GivesALastNameItsValues) {
  Catalogue read = Catalogue::Read("Own chuck");
  EXPECT_FALSE(read.Put("Other", {.type = 103, .B = 60})) << "its name would become the value line";
  ASSERT_TRUE(read.Put("Own chuck", {.type = 103, .B = 60}));
  EXPECT_EQ(read.Text(), "Own chuck\n103 0.000000 60.000000\n");
}

TEST(Catalogue, RenamesADeviceInItsPlace) {
  Catalogue read = Catalogue::Read("Jaw\r\n9 38 62 12 24\r\nLast\r\n1 80  90 20");
  EXPECT_FALSE(read.Rename("jaw", "Other"));
  EXPECT_TRUE(read.Rename("Jaw", "Soft jaw"));
  EXPECT_TRUE(read.Rename("Last", "L"));
  EXPECT_EQ(read.Text(), "Soft jaw\r\n9 38 62 12 24\r\nL\r\n1 80  90 20");
  ASSERT_TRUE(read.Put("Soft jaw", {.type = 9, .A = 40}));
  EXPECT_THAT(read.Text(), testing::StartsWith("Soft jaw\r\n9 40.000000 "));
}

TEST(Catalogue, PutsADeviceBackWhereItWas) {
  const std::string text = "Jaw\n9 38  62 12 24\nMiddle\n1 80 90 20\nLast\n1 80 90 21";
  for (const char* const name : {"Jaw", "Middle", "Last"}) {
    Catalogue read = Catalogue::Read(text);
    const catalogue::Entry removed = *read.Find(name);
    const auto position = static_cast<std::size_t>(read.Find(name) - read.entries().data());
    ASSERT_TRUE(read.Remove(name));
    ASSERT_TRUE(read.Insert(position, removed));
    EXPECT_EQ(read.Text(), text);
    EXPECT_EQ(read.Find(name)->params, removed.params);
  }
}

TEST(Catalogue, ReadsALongLineAsSeveral) {
  const std::string name(1500, 'n');
  const std::string text = name + "\n" + kChuck;
  const Catalogue read = Catalogue::Read(text);
  ASSERT_EQ(read.entries().size(), 2U) << "the rest of the name is its value line";
  EXPECT_EQ(read.entries()[0].name, name.substr(0, 1023));
  EXPECT_EQ(read.entries()[0].Values(), name.substr(1023));
  EXPECT_EQ(read.entries()[1].line, 2);
  EXPECT_EQ(read.Text(), text);
}

TEST(Catalogue, ClearsTheValuesThatATypeDoesNotHave) {
  EXPECT_EQ(Catalogue::Read("A\n1 80 90 20 7 7\n").Find("A")->params, ChuckOf(80, 90, 20));
  EXPECT_EQ(Catalogue::Read("A\n109 3 55\n").Find("A")->params, (DeviceParams{.type = 103, .B = 55}));
}

/// A catalogue on the disk.
class ShopFiles : public testing::Test {
 protected:
  ShopFiles() { WriteBytes(file, kChuck); }

  const TemporaryFolder folder;
  const fs::path file = folder / "clampdevice.cld";
};

TEST_F(ShopFiles, AreNotWrittenWhereTheChangeFails) {
  const auto changed = catalogue::ChangeShop(file, [](catalogue::Shop& shop) -> Result<bool> {
    shop.catalogue.Remove("Chuck 160");
    return Fault{"no"};
  });
  EXPECT_FALSE(changed);
  EXPECT_EQ(ReadBytes(file), kChuck);
}

TEST_F(ShopFiles, HaveMakerDataBesideTheFileThatALinkLeadsTo) {
  fs::create_directory(folder / "project");
  const fs::path link = folder / "project/link.cld";
  fs::create_symlink(file, link);
  const auto changed = catalogue::ChangeShop(link, [](catalogue::Shop& shop) -> Result<bool> {
    VANZET_DO(shop.maker.Set("Chuck 160", "stroke", "6"));
    return true;
  });
  EXPECT_TRUE(changed);
  EXPECT_THAT(ReadBytes(folder / "clampdevice.json"), HasSubstr("\"stroke\": 6"));
  EXPECT_EQ(ReadBytes(file), kChuck);
}

TEST_F(ShopFiles, OfAnotherProgramAreNotChanged) {
  const std::string text = "# settings of the shell\nexport EDITOR=vi\n";
  WriteBytes(file, text);
  const auto changed = catalogue::ChangeShop(file, [](catalogue::Shop& shop) -> Result<bool> {
    VANZET_DO(shop.catalogue.Put("A", ChuckOf(80, 90, 20)));
    return true;
  });
  ASSERT_FALSE(changed);
  EXPECT_THAT(changed.fault().Message(), HasSubstr("clampdevice.cld:2: expected the values of a device"));
  EXPECT_EQ(ReadBytes(file), text);
}

TEST_F(ShopFiles, OfBothKindsAreWrittenOrNeither) {
  WriteBytes(folder / "clampdevice.json", "{\"devices\":{}} // mine\n");
  const auto changed = catalogue::ChangeShop(file, [](catalogue::Shop& shop) -> Result<bool> {
    VANZET_DO(shop.catalogue.Put("A", ChuckOf(80, 90, 20)));
    VANZET_DO(shop.maker.Set("A", "stroke", "6"));
    return true;
  });
  ASSERT_FALSE(changed) << "the comment would be lost";
  EXPECT_EQ(ReadBytes(file), kChuck);
}

}  // namespace
}  // namespace vanzet::test
