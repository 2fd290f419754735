#include "catalogue/device_catalogue.h"

#include <sys/stat.h>

#include <stdexcept>

#include "catalogue_fixture.h"
#include "macro/device_record.h"
#include "support/child.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kTwo = "Chuck 1\n1 100.0 50.0\nJaw\n9 30.0 20.0\n";

/// docs/formats/catalogue.md, whose example is what is written.
TEST(CataloguePage, ShowsTheFileAsItIsWritten) {
  CatalogueWorld world;
  CDevice device;
  const std::pair<const char*, DeviceParams> devices[] = {
      {"Chuck 160", {.type = 1, .A = 80, .B = 90, .C = 22.5}},
      {"Soft jaw", {.type = 9, .A = 38, .B = 62, .C = 12, .D = 24}},
      {"Own chuck", {.type = 103, .B = 55}}};
  for (const auto& [name, params] : devices) {
    std::string line;
    PackDeviceParams(params, line);
    device.PutDevice(name, line);
  }
  ASSERT_TRUE(device.WriteFile());
  EXPECT_THAT(ReadBytes(VANZET_SOURCE_DIR "/docs/formats/catalogue.md"),
              testing::HasSubstr("```\n" + ReadBytes(world.file) + "```\n"));
}

class DevicePath : public CatalogueTest {};

TEST_F(DevicePath, IsThatOfTheProject) {
  const CDevice device;
  EXPECT_EQ(device.path(), world.file.string());
  EXPECT_THAT(host.calls, ElementsAre("OrvoWriteGlobal$('$_return', '')",
                                      "OrvoCommand('file e '' $_project 'CLAMP_DB_PATH' $_return')",
                                      "OrvoReadGlobal$('$_return')"));
}

TEST_F(DevicePath, IsTheHostsWhereTheProjectHasNone) {
  host.environment["clampmdb"] = "/shop/all.cld";
  for (const char* setting : {"", "a", "ab"}) {
    world.setting = setting;
    EXPECT_EQ(CDevice().path(), "/shop/all.cld") << setting;
  }
  world.setting = "abc";
  EXPECT_EQ(CDevice().path(), "abc");
}

TEST_F(DevicePath, IsTheHostsWhereTheSettingCannotBeRead) {
  host.environment["clampmdb"] = "/shop/all.cld";
  host.texts.erase("$_return");
  host.onCommand = nullptr;
  EXPECT_EQ(CDevice().path(), "/shop/all.cld");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalStrVar Failed|$_return|0"));
}

TEST_F(DevicePath, IsNotThatOfAnEarlierCommand) {
  host.onCommand = nullptr;
  EXPECT_EQ(CDevice().path(), "") << "the variable was emptied first";
}

TEST_F(DevicePath, MayHaveBackslashesAndAnotherCase) {
  WriteBytes(world.file, kTwo);
  CDevice device;
  device.SetPath(world.folder.path().string() + "\\CLAMPDEVICE.cld");
  EXPECT_TRUE(device.ReadFile());
  EXPECT_THAT(Names(device, 1), ElementsAre("Chuck 1"));
}

class DeviceFile : public CatalogueTest {};

TEST_F(DeviceFile, IsReadAsPairsOfLines) {
  WriteBytes(world.file, kTwo);
  CDevice device;
  EXPECT_THAT(Names(device, 1), IsEmpty()) << "not read yet";
  EXPECT_TRUE(device.ReadFile());
  EXPECT_THAT(Names(device, 1), ElementsAre("Chuck 1"));
  EXPECT_THAT(Names(device, 9), ElementsAre("Jaw"));
  EXPECT_THAT(Names(device, 2), IsEmpty());
  EXPECT_EQ(device.ValueLineOf("Jaw"), "9 30.0 20.0");
}

TEST_F(DeviceFile, MayBeEmpty) {
  WriteBytes(world.file, "");
  CDevice device;
  EXPECT_TRUE(device.ReadFile());
  EXPECT_THAT(Names(device, 0), IsEmpty());
}

TEST_F(DeviceFile, IsWrittenWithALineFeedBehindEachLine) {
  EXPECT_EQ(ReadAndWritten(kTwo), kTwo);
  EXPECT_EQ(ReadAndWritten("Chuck\n1 1 2"), "Chuck\n1 1 2\n") << "the last line end is missing";
  EXPECT_EQ(ReadAndWritten("Chuck\r\n1 1 2\r\n"), "Chuck\n1 1 2\n");
  EXPECT_EQ(ReadAndWritten("Chuck\r\r\n1 1 2\r"), "Chuck\n1 1 2\n");
  EXPECT_EQ(ReadAndWritten("a\rb\n1\n"), "a\rb\n1\n") << "a return within a line stays";
  EXPECT_EQ(ReadAndWritten(""), "");
  EXPECT_EQ(ReadAndWritten("\n"), "\n");
  EXPECT_EQ(ReadAndWritten("a\n\n\nb"), "a\n\n\nb\n") << "empty lines are lines";
  EXPECT_EQ(ReadAndWritten("B\xC3\xBC"
                           "chse \xFF\n2 1\n"),
            "B\xC3\xBC"
            "chse \xFF\n2 1\n");
}

TEST_F(DeviceFile, SplitsALineAboveItsLength) {
  const std::string longest(1023, 'n');
  EXPECT_EQ(ReadAndWritten(longest + "\n1\n"), longest + "\n1\n");
  EXPECT_EQ(ReadAndWritten(longest + "\r\n1\r\n"), longest + "\n1\n");
  EXPECT_EQ(ReadAndWritten(longest + "x\n1\n"), longest + "\nx\n1\n");
  EXPECT_EQ(ReadAndWritten(longest + longest + "\n"), longest + "\n" + longest + "\n");
  EXPECT_EQ(ReadAndWritten(longest + longest + "yy"), longest + "\n" + longest + "\nyy\n");
}

TEST_F(DeviceFile, ThatCannotBeReadLeavesNoDevices) {
  WriteBytes(world.file, kTwo);
  CDevice device;
  ASSERT_TRUE(device.ReadFile());
  device.SetPath((world.folder / "missing.cld").string());
  EXPECT_FALSE(device.ReadFile());
  EXPECT_THAT(Names(device, 1), IsEmpty());
  EXPECT_FALSE(fs::exists(world.folder / "missing.cld"));
}

TEST_F(DeviceFile, HasToBeOneThatCanBeWrittenToo) {
  WriteBytes(world.file, kTwo);
  fs::permissions(world.file, fs::perms(0444));
  CDevice device;
  EXPECT_FALSE(device.ReadFile());
  device.PutDevice("Chuck", "1 1 2");
  EXPECT_FALSE(device.WriteFile());
  EXPECT_EQ(ReadBytes(world.file), kTwo);
}

TEST_F(DeviceFile, HasToBeAFile) {
  ASSERT_EQ(mkfifo((world.folder / "pipe").c_str(), 0666), 0);
  CDevice device;
  for (const std::string& path :
       {std::string(), world.folder.path().string(), (world.folder / "pipe").string(),
        std::string("/dev/zero"), std::string("/dev/full"), std::string("Q:\\clampdevice.cld")}) {
    device.SetPath(path);
    EXPECT_FALSE(device.ReadFile()) << path;
    EXPECT_FALSE(device.WriteFile()) << path;
  }
}

TEST_F(DeviceFile, OfAWriterThatIsKilledIsWhole) {
  CDevice device;
  for (int i = 0; i < 3000; ++i) device.PutDevice("Device " + std::to_string(i), "1 80.0 90.0");
  ASSERT_TRUE(device.WriteFile());
  const std::string whole = ReadBytes(world.file);
  for (int round = 0; round < 10; ++round) {
    Child writer([&](Child::Line& line) {
      static_cast<void>(device.WriteFile());
      line.Tell();
      for (;;) static_cast<void>(device.WriteFile());
      return true;
    });
    ASSERT_TRUE(writer.line().Await());
    writer.Kill();
    ASSERT_EQ(ReadBytes(world.file), whole);
  }
}

class Devices : public CatalogueTest {
 protected:
  Devices() {
    WriteBytes(world.file, "chuck\n1 1\nChuck\n1 2\njaw\n9 3\n\n1 4\nnone\nno value\n");
    static_cast<void>(device.ReadFile());
  }
  CDevice device;
};

TEST_F(Devices, OfATypeAreListedInFileOrder) {
  EXPECT_THAT(Names(device, 1), ElementsAre("chuck", "Chuck", ""));
  EXPECT_THAT(Names(device, 0), ElementsAre("none")) << "no number counts as 0";
}

TEST_F(Devices, AreKnownByTheirExactNames) {
  EXPECT_EQ(device.ValueLineOf("chuck"), "1 1");
  EXPECT_EQ(device.ValueLineOf("Chuck"), "1 2");
  EXPECT_EQ(device.ValueLineOf("CHUCK"), "");
  EXPECT_FALSE(device.HasDevice("chuck "));
  EXPECT_FALSE(device.HasDevice("9 3")) << "a value line is no name";
  EXPECT_EQ(device.ValueLineOf(""), "1 4") << "the empty name is that of an empty line";
}

TEST_F(Devices, AreRemovedWithTheirValues) {
  EXPECT_TRUE(device.RemoveDevice("Chuck"));
  EXPECT_FALSE(device.RemoveDevice("Chuck"));
  EXPECT_THAT(Names(device, 1), ElementsAre("chuck", ""));
  EXPECT_TRUE(device.RemoveDevice(""));
  EXPECT_THAT(Names(device, 1), ElementsAre("chuck"));
  EXPECT_THAT(Names(device, 9), ElementsAre("jaw"));
}

TEST_F(Devices, AreReplacedWhereTheirNameIsKnown) {
  device.PutDevice("Chuck", "2 7");
  device.PutDevice("new", "1 5");
  EXPECT_THAT(Names(device, 2), ElementsAre("Chuck"));
  EXPECT_THAT(Names(device, 1), ElementsAre("chuck", "", "new"));
}

TEST_F(Devices, OfOneNameAreTheFirst) {
  WriteBytes(world.file, "a\n1 1\na\n1 2\n");
  static_cast<void>(device.ReadFile());
  device.PutDevice("a", "1 3");
  EXPECT_THAT(Names(device, 1), ElementsAre("a", "a"));
  EXPECT_EQ(device.ValueLineOf("a"), "1 3");
  EXPECT_TRUE(device.RemoveDevice("a"));
  EXPECT_EQ(device.ValueLineOf("a"), "1 2");
}

TEST_F(Devices, StayApartWhenANameWouldTakeSeveralLines) {
  device.PutDevice("two\nlines", "1 8\n9 9");
  device.PutDevice(std::string(2000, 'n'), "1 " + std::string(2000, '7'));
  ASSERT_TRUE(device.WriteFile());
  CDevice read;
  ASSERT_TRUE(read.ReadFile());
  EXPECT_EQ(read.ValueLineOf("two"), "1 8");
  EXPECT_FALSE(read.RemoveDevice("two\nlines")) << "names are compared whole";
  EXPECT_THAT(read.ValueLineOf(std::string(1023, 'n')), StartsWith("1 777"));
  EXPECT_THAT(Names(read, 9), ElementsAre("jaw"));
}

TEST_F(Devices, OfAnOddListEndWithAnError) {
  WriteBytes(world.file, "a\n1 1\nb\n2\nlast");
  ASSERT_TRUE(device.ReadFile());
  std::vector<std::string> names = {"from before"};
  try {
    device.NamesOfType(1, names);
    ADD_FAILURE() << "nothing was thrown";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "invalid vector subscript");
  }
  EXPECT_THAT(names, ElementsAre("a")) << "those before the last are there";
  EXPECT_EQ(device.ValueLineOf("last"), "");
  EXPECT_TRUE(device.HasDevice("last"));
}

TEST_F(Devices, OfAnOddListCanBeMendedByAValueLineOrARemoval) {
  WriteBytes(world.file, "a\n1 1\nlast");
  ASSERT_TRUE(device.ReadFile());
  device.PutDevice("last", "1 9");
  EXPECT_THAT(Names(device, 1), ElementsAre("a", "last"));
  ASSERT_TRUE(device.ReadFile());
  EXPECT_TRUE(device.RemoveDevice("last"));
  EXPECT_THAT(Names(device, 1), ElementsAre("a"));
}

TEST_F(Devices, AddedToAnOddListStandBehindIt) {
  WriteBytes(world.file, "last");
  ASSERT_TRUE(device.ReadFile());
  device.PutDevice("new", "1 5");
  static_cast<void>(device.WriteFile());
  EXPECT_EQ(ReadBytes(world.file), "last\nnew\n1 5\n");
}

TEST_F(Devices, KeptInAVdmHaveTwoValues) {
  std::string line;
  PackDeviceParams({.type = 103, .A = 1, .B = 2, .C = 3}, line);
  device.PutDevice("own", line);
  EXPECT_EQ(device.ValueLineOf("own"), "103 1.000000 2.000000");
  DeviceParams params;
  UnpackDeviceParams(params, device.ValueLineOf("own"));
  EXPECT_EQ(params, (DeviceParams{.type = 103, .B = 2}));
}

class SelectFile : public CatalogueTest {
 protected:
  CDevice device;
};

TEST_F(SelectFile, TakesTheChosenPath) {
  files.choices = {"D:\\new.cld", std::nullopt};
  EXPECT_TRUE(device.SelectFile(true, nullptr));
  EXPECT_EQ(device.path(), "D:\\new.cld");
  EXPECT_FALSE(device.SelectFile(true, nullptr));
  EXPECT_EQ(device.path(), "D:\\new.cld") << "cancelled";
}

TEST_F(SelectFile, AsksForAClampdeviceFile) {
  int window = 0;
  device.SelectFile(true, &window);
  ASSERT_EQ(files.asked.size(), 1U);
  const platform::FileQuestion& asked = files.asked[0];
  EXPECT_EQ(asked.kind, platform::FileQuestion::Kind::kOpen);
  EXPECT_EQ(asked.filter, "Clampdevice Files (*.cld)|*.cld||");
  EXPECT_EQ(asked.startFolder, "/settings");
  EXPECT_EQ(asked.suggested, "");
  EXPECT_TRUE(asked.promptsOverwrite);
  EXPECT_EQ(asked.longestPath, 260U);
  EXPECT_EQ(asked.owner, &window);
}

TEST_F(SelectFile, SuggestsANameForWriting) {
  device.SelectFile(false, nullptr);
  EXPECT_EQ(files.asked.at(0).suggested, "clampdevice_de");
  host.texts["$_COUNTRY"] = std::string(300, 'x');
  device.SelectFile(false, nullptr);
  EXPECT_EQ(files.asked.at(1).suggested, "clampdevice" + std::string(249, 'x'));
}

TEST_F(SelectFile, GoesOnWithoutTheVariables) {
  host.texts.clear();
  files.choices = {"a.cld"};
  EXPECT_TRUE(device.SelectFile(false, nullptr));
  EXPECT_EQ(files.asked.at(0).suggested, "clampdevice");
  EXPECT_EQ(files.asked.at(0).startFolder, "");
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre("OrvoApi::MacroExport::GetGlobalStrVar Failed|$_COUNTRY|0",
                          "OrvoApi::MacroExport::GetGlobalStrVar Failed|$_USER_DATA_SETTINGS|0"));
}

}  // namespace
}  // namespace vanzet::test
