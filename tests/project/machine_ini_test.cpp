#include "project/machine_ini.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

class MachineIni : public testing::Test {
 protected:
  Result<std::int32_t> Spurs(const std::string& text) const {
    test::WriteBytes(folder / "machine.ini", text);
    return CountSpindleSpurs(folder / "machine.ini", "machine.ini");
  }
  const test::TemporaryFolder folder;
};

TEST_F(MachineIni, TellsTheCountOfSpurs) {
  EXPECT_EQ(*Spurs("[COMMON]\nNR_SPINDEL_SPUR=2\n"), 2);
  EXPECT_EQ(*Spurs("[x]\nNR_SPINDEL_SPUR=3\n[common]\nrubbish\nnr_spindel_spur=\"50\"\n"), 50);
}

TEST_F(MachineIni, HasOneSpurWhereItSaysNothingSensible) {
  for (const char* text :
       {"", "[COMMON]\n", "[COMMON]\nNR_SPINDEL_SPUR=0\n", "[COMMON]\nNR_SPINDEL_SPUR=51\n",
        "[COMMON]\nNR_SPINDEL_SPUR=two\n", "[COMMON]\n[common]\nNR_SPINDEL_SPUR=2\n"}) {
    EXPECT_EQ(*Spurs(text), 1) << text;
  }
}

TEST_F(MachineIni, ThatIsNotThereHasOneSpur) {
  EXPECT_EQ(*CountSpindleSpurs(folder / "none.ini", "none.ini"), 1);
}

TEST_F(MachineIni, HasTheSizesOfTheSteadyRest) {
  test::WriteBytes(folder / "machine.ini",
                   "[COMMON]\nLUN_MAX_DIAM=165,5\nLUN_ROLL_DIAM = 40.0\nLUN_X0_DIST=\"310\"\n");
  const auto rest = ReadSteadyRest(folder / "machine.ini", "machine.ini");
  ASSERT_TRUE(rest);
  EXPECT_EQ(rest->largestDiameter, 165.5);
  EXPECT_EQ(rest->rollDiameter, 40);
  EXPECT_EQ(rest->position, 310);
  EXPECT_EQ(ReadSteadyRest(folder / "none.ini", "none.ini")->position, 0);
}

TEST_F(MachineIni, ThatIsNoTextIsRefused) {
  const auto spurs = Spurs(std::string("[COMMON]\n\0\n", 11));
  ASSERT_FALSE(spurs);
  EXPECT_EQ(spurs.fault().line, 2);
}

}  // namespace
}  // namespace vanzet::project
