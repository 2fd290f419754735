#include "catalogue/package_symbols.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/kinds.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::HasSubstr;

constexpr std::int32_t kChuck = 1;

PackageSymbols Symbols(const std::string& text) {
  const auto symbols = PackageSymbols::Read(text, "own.ini");
  EXPECT_TRUE(symbols) << symbols.fault().Message();
  return symbols ? *symbols : PackageSymbols();
}

/// "A=125 B=105 | mass=38.5".
std::string TextOf(const Result<PackageValues>& values) {
  if (!values) return values.fault().Message();
  std::string text;
  for (const auto& letter : values->letters) text += letter.key + "=" + letter.text + " ";
  text += "|";
  for (const auto& figure : values->figures) text += " " + figure.key + "=" + figure.text;
  return text;
}

modeller::PackageItem Chuck() {
  modeller::PackageItem item;
  item.properties = {{{"BD"}, "250.0", "mm"}, {{"length", "OAL"}, "4", "inch"},
                     {{"WT"}, "38500", "g"},  {{"DMIN"}, "30", ""},
                     {{"DMAX"}, "250", "mm"}, {{"FORCE"}, "60000", "N"},
                     {{"SERIES"}, "KF", ""},  {{"ODD"}, "3", "lb"}};
  return item;
}

TEST(PackageSymbols, MakeLettersAndFigures) {
  const PackageSymbols symbols = Symbols(
      "; a comment\n[chuck]\nA = BD/2\nB = LEN, oal\nC = BORE\n[collet]\nA = BD\n[maker]\nmass = WT\n"
      "clamp_outside = DMIN..DMAX\nmax_force = FORCE*3\nnote = SERIES\n");
  EXPECT_EQ(TextOf(symbols.ValuesOf(Chuck(), kChuck)),
            "A=125 B=101.6 | mass=38.5 clamp_outside=30..250 max_force=180 note=KF");
}

TEST(PackageSymbols, OfAnotherTableWin) {
  PackageSymbols symbols = Symbols("[chuck]\nA = BD/2\nB = OAL\n");
  symbols.Add(Symbols("[chuck]\nB = DMIN\nC = DMAX/4\n"));
  EXPECT_EQ(TextOf(symbols.ValuesOf(Chuck(), kChuck)), "A=125 B=30 C=62.5 |");
}

TEST(PackageSymbols, RefuseAValueOfAnotherUnit) {
  EXPECT_EQ(TextOf(Symbols("[maker]\nmass = ODD\n").ValuesOf(Chuck(), kChuck)),
            "ODD: its unit 'lb' is not one of kg");
  EXPECT_EQ(TextOf(Symbols("[maker]\nmass = BD\n").ValuesOf(Chuck(), kChuck)),
            "BD: its unit 'mm' is not one of kg");
  EXPECT_EQ(TextOf(Symbols("[chuck]\nA = SERIES\n").ValuesOf(Chuck(), kChuck)),
            "SERIES: expected a number, found 'KF'");
}

TEST(PackageSymbols, RefuseOtherTables) {
  const auto refusal = [](const std::string& text) {
    const auto symbols = PackageSymbols::Read(text, "own.ini");
    return symbols ? "" : symbols.fault().Message();
  };
  EXPECT_EQ(refusal("[vice]\n"), "own.ini:1:2: expected [maker] or a kind of devices, found 'vice'");
  EXPECT_EQ(refusal("A = BD\n"), "own.ini:1:1: expected 'key = symbol'");
  EXPECT_EQ(refusal("[chuck]\nD = BD\n"), "own.ini:2:1: [chuck] does not have the key 'D'");
  EXPECT_EQ(refusal("[maker]\nspeed = BD\n"), "own.ini:2:1: [maker] does not have the key 'speed'");
  for (const char* const value : {"", "BD/0", "BD/x", "BD..", "BD,,OAL", "/2"}) {
    EXPECT_THAT(refusal(std::string("[chuck]\nA = ") + value + "\n"), HasSubstr("expected a symbol"))
        << value;
  }
}

TEST(PackageSymbols, OfTheProgramAreOnesOfAllParametricKinds) {
  const PackageSymbols symbols = Symbols(ReadBytes(VANZET_SOURCE_DIR "/share/packages/symbols.ini"));
  for (const std::string& word : ParametricWords()) {
    EXPECT_TRUE(symbols.ValuesOf({}, TypesOfWord(word).front())) << word;
  }
  EXPECT_EQ(TextOf(symbols.ValuesOf(Chuck(), kChuck)), "A=125 B=101.6 | mass=38.5");
}

}  // namespace
}  // namespace vanzet::test
