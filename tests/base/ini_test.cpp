#include "base/ini.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>

namespace vanzet {
namespace {

using Kind = IniLine::Kind;

/// The first line of a text, with views that stay.
IniLine FirstLine(const std::string& text) {
  static std::optional<IniReader> reader;
  std::istringstream stream(text);
  IniLine line{Kind::kNothing, {}, {}};
  EXPECT_TRUE(reader.emplace(stream).Next(line));
  return line;
}

TEST(IniReader, TellsSectionsEntriesCommentsAndTheRest) {
  EXPECT_EQ(FirstLine("[ COMMON ] rest").kind, Kind::kSection);
  EXPECT_EQ(FirstLine("[ COMMON ] rest").name, "COMMON");
  EXPECT_EQ(FirstLine(" KEY = some value ").kind, Kind::kEntry);
  EXPECT_EQ(FirstLine(" KEY = some value ").name, "KEY");
  EXPECT_EQ(FirstLine(" KEY = some value ").value, "some value");
  EXPECT_EQ(FirstLine("; KEY=1").kind, Kind::kNothing);
  EXPECT_EQ(FirstLine("# KEY=1").kind, Kind::kNothing);
  EXPECT_EQ(FirstLine("  ").kind, Kind::kNothing);
  EXPECT_EQ(FirstLine("[COMMON").kind, Kind::kOther);
  EXPECT_EQ(FirstLine("no entry").kind, Kind::kOther);
}

TEST(IniReader, TakesOnePairOfQuotesOffAValue) {
  EXPECT_EQ(FirstLine("k=\" a \"").value, " a ");
  EXPECT_EQ(FirstLine("k='a'").value, "a");
  EXPECT_EQ(FirstLine("k=\"\"a\"\"").value, "\"a\"");
  EXPECT_EQ(FirstLine("k=\"a'").value, "\"a'");
  EXPECT_EQ(FirstLine("k=\"").value, "\"");
  EXPECT_EQ(FirstLine("k=a=b").value, "a=b");
  EXPECT_EQ(FirstLine("k=").value, "");
}

TEST(IniReader, PassesOverAByteOrderMarkAndCarriageReturns) {
  std::istringstream text("\xEF\xBB\xBF[A]\r\nk=1\r\n");
  IniReader reader(text);
  IniLine line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line.name, "A");
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line.value, "1");
  EXPECT_EQ(reader.LineNumber(), 2);
  EXPECT_FALSE(reader.Next(line));
}

TEST(FindIniValue, CountsTheFirstSectionAndTheFirstKeyWithoutRegardToCase) {
  std::istringstream text("[x]\nk=0\n[A]\nK=1\nk=2\n[a]\nl=3\n");
  EXPECT_EQ(FindIniValue(text, "a", "k"), "1");
  std::istringstream again("[x]\nk=0\n[A]\nK=1\nk=2\n[a]\nl=3\n");
  EXPECT_EQ(FindIniValue(again, "A", "l"), std::nullopt);
}

}  // namespace
}  // namespace vanzet
