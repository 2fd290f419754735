#include "platform/private_profile.h"

#include <gtest/gtest.h>

#include <random>

#include "support/reported_faults.h"
#include "support/temporary_folder.h"

namespace vanzet::platform {
namespace {

class PrivateProfile : public testing::Test {
 protected:
  std::string Read(const std::string& text, std::string_view key, std::string_view section = "COMMON") {
    test::WriteBytes(folder / "machine.ini", text);
    return ReadProfileText(section, key, "default", (folder / "machine.ini").string());
  }

  const test::TemporaryFolder folder;
};

TEST_F(PrivateProfile, GivesTheValueOfTheKeyInItsSection) {
  const std::string text = "KEY=outside\n[OTHER]\nKEY=other\n[COMMON]\nA=1\nKEY = value \n[B2]\nKEY=b2\n";
  EXPECT_EQ(Read(text, "KEY"), "value");
  EXPECT_EQ(Read(text, "KEY", "B2"), "b2");
}

TEST_F(PrivateProfile, ComparesSectionsAndKeysWithoutRegardToCase) {
  EXPECT_EQ(Read("[Common]\nnr_Of_Channel=2\n", "NR_OF_CHANNEL"), "2");
}

TEST_F(PrivateProfile, GivesTheDefaultForWhatIsMissing) {
  EXPECT_EQ(Read("[COMMON]\nA=1\n[B2]\nKEY=1\n", "KEY"), "default");
  EXPECT_EQ(Read("[B2]\nKEY=1\n", "KEY"), "default");
  EXPECT_EQ(Read("", "KEY"), "default");
  EXPECT_EQ(ReadProfileText("COMMON", "KEY", "default", (folder / "none.ini").string()), "default");
  EXPECT_EQ(ReadProfileText("COMMON", "KEY", "default", folder.path().string()), "default") << "a folder";
}

TEST_F(PrivateProfile, ReportsAFileThatTheSystemDoesNotLetItRead) {
  const test::ReportedFaults reported;
  const std::string tooLong = "/" + std::string(300, 'n');
  EXPECT_EQ(ReadProfileText("COMMON", "KEY", "default", tooLong), "default");
  EXPECT_EQ(ReadProfileText("COMMON", "KEY", "default", (folder / "none.ini").string()), "default");
  ASSERT_EQ(reported.faults().size(), 1U);
  EXPECT_EQ(reported.Messages()[0], tooLong + ": cannot be read: File name too long");
}

TEST_F(PrivateProfile, TakesAKeyWithoutTextForAnEmptyValue) {
  EXPECT_EQ(Read("[COMMON]\nKEY=\n", "KEY"), "");
}

TEST_F(PrivateProfile, CountsTheFirstOfEqualKeysAndOfEqualSections) {
  EXPECT_EQ(Read("[COMMON]\nKEY=1\nkey=2\n", "KEY"), "1");
  EXPECT_EQ(Read("[COMMON]\nA=1\n[common]\nKEY=2\n", "KEY"), "default");
}

TEST_F(PrivateProfile, TakesOnePairOfQuotesOff) {
  EXPECT_EQ(Read("[COMMON]\nKEY = \" two words \" \n", "KEY"), " two words ");
  EXPECT_EQ(Read("[COMMON]\nKEY='x'\n", "KEY"), "x");
}

TEST_F(PrivateProfile, PassesOverCommentsAndLinesThatAreNoEntries) {
  EXPECT_EQ(Read("[COMMON]\n;KEY=1\nrubbish\nKEY=2\n", "KEY"), "2");
}

TEST_F(PrivateProfile, ReadsCarriageReturnsAndAByteOrderMark) {
  EXPECT_EQ(Read("\xEF\xBB\xBF[COMMON]\r\nKEY=2\r\n", "KEY"), "2");
}

TEST_F(PrivateProfile, CutsAValueAt1023Bytes) {
  EXPECT_EQ(Read("[COMMON]\nKEY=" + std::string(1023, 'x'), "KEY"), std::string(1023, 'x'));
  EXPECT_EQ(Read("[COMMON]\nKEY=" + std::string(1024, 'x'), "KEY"), std::string(1023, 'x'));
}

TEST_F(PrivateProfile, GivesTheDefaultForRandomBytes) {
  std::mt19937 random(1);
  std::string bytes(100000, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  EXPECT_EQ(Read(bytes, "KEY"), "default");
}

}  // namespace
}  // namespace vanzet::platform
