#include <sys/stat.h>

#include "vdm/vdm_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <sstream>

#include "support/child.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;
using namespace std::string_literals;

Result<Vdm> Read(const std::string& text) {
  std::istringstream stream(text);
  return ReadVdm(stream, "a.vdm");
}

class VdmFile : public testing::Test {
 protected:
  std::string Write(const Records& records) {
    EXPECT_EQ(Told(WriteVdmFile(file, VdmOf(records))), "");
    return test::ReadBytes(file);
  }
  /// The names in the file's folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  test::TemporaryFolder folder;
  const std::filesystem::path file = folder / "a.vdm";
};

const Records kExample = {{"Billet definition", "100", "0.000000 80.000000"},
                          {"Main Spindle", "D:\\x\ny", ""}};
const std::string kExampleText =
    "vdm 1\n"
    "record\n"
    ".Billet definition\n"
    ".100\n"
    ".0.000000 80.000000\n"
    "record\n"
    ".Main Spindle\n"
    ".D:\\\\x\\ny\n"
    ".\n"
    "end 2\n";

TEST_F(VdmFile, IsWrittenAsTheFormatTells) {
  EXPECT_EQ(Write(kExample), kExampleText);
  EXPECT_EQ(Write({}), "vdm 1\nend 0\n");
  EXPECT_EQ(Write({{}}), "vdm 1\nrecord\nend 1\n");
}

TEST_F(VdmFile, IsTheWorkedExampleOfItsPage) {
  const std::string page = test::ReadBytes(VANZET_SOURCE_DIR "/docs/formats/vdm.md");
  EXPECT_THAT(page, testing::HasSubstr("```\n" + kExampleText + "```\n"));
}

TEST_F(VdmFile, IsReadAsItWasWritten) {
  test::Dice dice(23);
  for (int round = 0; round < 60; ++round) {
    Records records(dice.UpTo(8));
    for (auto& items : records) {
      items.resize(dice.UpTo(8));
      for (std::string& item : items) item = dice.Text(dice.UpTo(9) == 0 ? kLongestItem : 30);
    }
    Write(records);
    ASSERT_EQ(RecordsOf(Get(ReadVdmFile(file))), records);
  }
}

TEST_F(VdmFile, HoldsTheLongestItemWithEveryByteEscaped) {
  const Records records = {{std::string(kLongestItem, '\\')}};
  Write(records);
  EXPECT_EQ(RecordsOf(Get(ReadVdmFile(file))), records);
}

TEST(VdmText, MayEndItsLinesWithCarriageReturnAndLineFeed) {
  EXPECT_EQ(RecordsOf(Get(Read("vdm 1\r\nrecord\r\n.a\r\n.b\\r\r\nend 1\r\n"))), (Records{{"a", "b\r"}}));
}

TEST(VdmText, MayBeginWithAByteOrderMark) {
  EXPECT_EQ(RecordsOf(Get(Read("\xEF\xBB\xBFvdm 1\nend 0\n"))), Records{});
}

TEST(VdmText, IsRefusedWhenCutShortAtAnyByte) {
  // More than nine records, so that cutting the count leaves a number.
  Records records(12, {"item", "with \\ and\n"});
  test::TemporaryFolder folder;
  ASSERT_EQ(Told(WriteVdmFile(folder / "a.vdm", VdmOf(records))), "");
  const std::string whole = test::ReadBytes(folder / "a.vdm");
  ASSERT_TRUE(Read(whole));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(Read(whole.substr(0, size))) << "cut at byte " << size;
  }
}

struct Refusal {
  std::string text;
  std::string told;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.told;
}

class RefusedVdmText : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedVdmText, TellsTheLineAndTheReason) {
  EXPECT_EQ(Told(Read(GetParam().text)), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, RefusedVdmText,
    testing::Values(
        Refusal{"", "a.vdm:1: is cut short"}, Refusal{"vdm 1", "a.vdm:1: is cut short"},
        Refusal{"vdm 1\n", "a.vdm:2: is cut short"}, Refusal{"vdm 1\nrecord\n.a\n", "a.vdm:4: is cut short"},
        Refusal{"vdm 1\nrecord\n.a", "a.vdm:3: is cut short"}, Refusal{"vdm 1\nend", "a.vdm:2: is cut short"},
        Refusal{"vdm 2\nend 0\n", "a.vdm:1: another version of the format: expected \"vdm 1\""},
        Refusal{"vdm 10\nend 0\n", "a.vdm:1: another version of the format: expected \"vdm 1\""},
        Refusal{"solid\nend 0\n", "a.vdm:1: not a VDM file: expected \"vdm 1\""},
        Refusal{"\nvdm 1\nend 0\n", "a.vdm:1: not a VDM file: expected \"vdm 1\""},
        Refusal{" vdm 1\nend 0\n", "a.vdm:1: not a VDM file: expected \"vdm 1\""},
        Refusal{"vdm 1\n.a\nend 0\n", "a.vdm:2: expected \"record\" before the first item"},
        Refusal{"vdm 1\nrecord\n." + std::string(5000, 'x') + "\nend 1\n",
                "a.vdm:3: an item has 5000 bytes, more than 4999"},
        Refusal{"vdm 1\nrecord\n.a\0b\nend 1\n"s, "a.vdm:3: an item holds a NUL"},
        Refusal{"vdm 1\nrecord\n.a\\tb\nend 1\n", "a.vdm:3:3: unknown escape: expected \\\\, \\n or \\r"},
        Refusal{"vdm 1\nrecord\n.a\\\nend 1\n", "a.vdm:3:3: unknown escape: expected \\\\, \\n or \\r"},
        Refusal{"vdm 1\nrecord\n.a\rb\nend 1\n", "a.vdm:3:3: a carriage return is written as \\r"},
        Refusal{"vdm 1\nrecord\nend 2\n", "a.vdm:3: expected \"end 1\" after 1 record"},
        Refusal{"vdm 1\nrecord\nend 1", "a.vdm:3: is cut short"},
        Refusal{"vdm 1\nrecord\nend one\n", "a.vdm:3: expected \"end 1\" after 1 record"},
        Refusal{"vdm 1\nrecord\nend \n", "a.vdm:3: expected \"end 1\" after 1 record"},
        Refusal{"vdm 1\nrecord \nend 1\n", "a.vdm:2: expected an item, \"record\" or \"end\""},
        Refusal{"vdm 1\n\nend 0\n", "a.vdm:2: expected an item, \"record\" or \"end\""},
        Refusal{"vdm 1\nend\n", "a.vdm:2: expected an item, \"record\" or \"end\""},
        Refusal{"vdm 1\nend 0\n\n", "a.vdm:3: unexpected text after \"end\""},
        Refusal{"vdm 1\nend 0\nrecord\n", "a.vdm:3: unexpected text after \"end\""},
        Refusal{"vdm 1\nend 0\n" + std::string(20000, 'x'), "a.vdm:3: unexpected text after \"end\""},
        Refusal{"vdm 1\nrecord\n." + std::string(20000, 'x'), "a.vdm:3: the line is longer than any item"},
        Refusal{std::string(20000, 'x'), "a.vdm:1: the line is longer than any item"}));

/// A text of endless lines that notes how much of it was read.
class EndlessLine : public std::streambuf {
 public:
  std::size_t given = 0;

 protected:
  int_type underflow() override {
    given += sizeof(bytes_);
    std::fill(std::begin(bytes_), std::end(bytes_), 'x');
    setg(bytes_, bytes_, std::end(bytes_));
    return 'x';
  }

 private:
  char bytes_[4096];
};

TEST(VdmText, IsNotReadFurtherThanItsLongestLine) {
  EndlessLine bytes;
  std::istream text(&bytes);
  EXPECT_EQ(Told(ReadVdm(text, "endless")), "endless:1: the line is longer than any item");
  EXPECT_LT(bytes.given, 20000u);
}

TEST_F(VdmFile, ThatIsNotThereOrNoRegularFileIsToldByName) {
  EXPECT_EQ(Told(ReadVdmFile(file)), file.string() + ": cannot be read");
  EXPECT_EQ(Told(ReadVdmFile(folder.path())), folder.path().string() + ": is not a regular file");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(Told(ReadVdmFile(folder / "pipe")), (folder / "pipe").string() + ": is not a regular file");
}

TEST_F(VdmFile, IsReplacedWithItsPermissionsAndNothingIsLeftBesideIt) {
  test::WriteBytes(file, "old");
  std::filesystem::permissions(file, std::filesystem::perms(0640));
  Write(kExample);
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(Names(), std::vector<std::string>{"a.vdm"});
}

TEST_F(VdmFile, IsReplacedWhereALinkLeads) {
  const auto target = folder / "elsewhere/b.vdm";
  test::WriteBytes(target, "old");
  std::filesystem::create_symlink(target, file);
  Write(kExample);
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(test::ReadBytes(target), kExampleText);
}

TEST_F(VdmFile, StaysAsItWasWhenARecordCannotBeFetched) {
  test::WriteBytes(file, "old");
  const Vdm damaged({RecordKey{1}}, [](RecordKey) -> Result<Record> { return Fault{"damaged"}; });
  EXPECT_EQ(Told(WriteVdmFile(file, damaged)), "damaged");
  EXPECT_EQ(test::ReadBytes(file), "old");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.vdm"});
}

TEST_F(VdmFile, StaysAsItWasWhenItIsReadOnly) {
  test::WriteBytes(file, "old");
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_EQ(Told(WriteVdmFile(file, Vdm())), file.string() + ": is read-only");
  EXPECT_EQ(test::ReadBytes(file), "old");
}

TEST_F(VdmFile, StaysAsItWasWhenTheDiskTakesNoMore) {
  test::WriteBytes(file, "old");
  test::Child child([&](test::Child::Line&) {
    // A limit of the file size stands for the full disk; its signal must not end the process.
    const rlimit limit = {100000, 100000};
    if (signal(SIGXFSZ, SIG_IGN) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
    const auto written = WriteVdmFile(file, VdmOf(Records(50, {std::string(4000, 'x')})));
    return Told(written) == file.string() + ": cannot be written: File too large";
  });
  EXPECT_TRUE(child.End());
  EXPECT_EQ(test::ReadBytes(file), "old");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.vdm"});
}

TEST_F(VdmFile, IsNotWrittenInThePlaceOfAFolderOrADevice) {
  EXPECT_EQ(Told(WriteVdmFile(folder.path(), Vdm())), folder.path().string() + ": is not a regular file");
  EXPECT_EQ(Told(WriteVdmFile("/dev/full", Vdm())), "/dev/full: is not a regular file");
}

TEST_F(VdmFile, CannotBeWrittenInAFolderThatIsNotThere) {
  const auto missing = folder / "missing/a.vdm";
  EXPECT_EQ(Told(WriteVdmFile(missing, Vdm())),
            missing.string() + ": cannot be written: No such file or directory");
}

}  // namespace
}  // namespace vanzet::vdm
