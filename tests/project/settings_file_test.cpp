#include "project/settings_file.h"

#include <gmock/gmock.h>

#include "support/child.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

using testing::HasSubstr;

class SettingsFiles : public testing::Test {
 protected:
  void Write(const std::string& text) { test::WriteBytes(folder / "bench.ini", text); }
  std::string Text() const { return test::ReadBytes(folder / "bench.ini"); }
  std::string Value(const std::string& key) const {
    const auto value = settings.Value(key);
    return value ? *value : value.fault().Message();
  }

  const test::TemporaryFolder folder;
  const SettingsFile settings{folder.path()};
};

TEST_F(SettingsFiles, ReadTheFirstOfEqualKeysOfTheSection) {
  EXPECT_EQ(Value("K"), "");
  Write("[environment]\nK = other\n[project]\nclamp_db_path = 'D:\\x'\nCLAMP_DB_PATH = second\n");
  EXPECT_EQ(Value("CLAMP_DB_PATH"), "D:\\x");
  EXPECT_EQ(Value("K"), "");
}

TEST_F(SettingsFiles, ReplaceTheValueAndKeepEveryOtherByte) {
  Write(
      "; head\r\n[project]\r\n  a=1\r\nclamp_db_path   =old ; no "
      "remark\r\nCLAMP_DB_PATH=second\r\n[language]\r\n");
  ASSERT_TRUE(settings.Set("CLAMP_DB_PATH", "new"));
  EXPECT_EQ(
      Text(),
      "; head\r\n[project]\r\n  a=1\r\nclamp_db_path   = new\r\nCLAMP_DB_PATH=second\r\n[language]\r\n");
}

TEST_F(SettingsFiles, AddToTheSectionBehindItsLastLine) {
  Write("[project]\na=1\n\n; about languages\n[language]\nmessages=de");
  ASSERT_TRUE(settings.Set("b", "2"));
  EXPECT_EQ(Text(), "[project]\na=1\nb = 2\n\n; about languages\n[language]\nmessages=de\n");
}

TEST_F(SettingsFiles, MakeTheSectionAndTheFile) {
  ASSERT_TRUE(settings.Set("a", "1"));
  EXPECT_EQ(Text(), "[project]\na = 1\n");
  Write("[language]\nmessages=de");
  ASSERT_TRUE(settings.Set("a", "1"));
  EXPECT_EQ(Text(), "[language]\nmessages=de\n\n[project]\na = 1\n");
}

TEST_F(SettingsFiles, KeepTheWorkbenchsOwnKeyApart) {
  const std::string text = "[project]\nunit = inch\nb = 2\n";
  Write(text);
  for (const char* key : {"unit", "UNIT"}) {
    EXPECT_EQ(Value(key), "") << key;
    const auto refused = settings.Set(key, "feet");
    ASSERT_FALSE(refused) << key;
    EXPECT_THAT(refused.fault().text,
                testing::EndsWith("is a setting of the workbench, which only a person changes"));
  }
  EXPECT_EQ(Text(), text);
}

TEST_F(SettingsFiles, GiveBackWhatWasSet) {
  for (const char* value :
       {"", " with blanks ", "'quoted'", "\"quoted\"", "a;b#c=d", "D:\\x\\y", "W\xc3\xa4hlen"}) {
    ASSERT_TRUE(settings.Set("K", value)) << value;
    EXPECT_EQ(Value("K"), value);
  }
}

TEST_F(SettingsFiles, RefuseWhatNoLineCanHoldAndLeaveTheFile) {
  Write("[project]\na=1\n");
  for (const char* key : {"", " a", "a ", "a=b", ";a", "#a", "[a", "a\nb"}) {
    EXPECT_FALSE(settings.Set(key, "x")) << key;
  }
  EXPECT_FALSE(settings.Set("a", "two\nlines"));
  EXPECT_EQ(Text(), "[project]\na=1\n");
}

TEST_F(SettingsFiles, LeaveADamagedFileAlone) {
  Write("[project]\nrubbish\n");
  EXPECT_THAT(Value("a"), HasSubstr("bench.ini:2:1: expected '[section]' or 'key = value'"));
  EXPECT_FALSE(settings.Set("a", "1"));
  EXPECT_EQ(Text(), "[project]\nrubbish\n");
}

TEST_F(SettingsFiles, AreChangedByOneProcessAtATime) {
  constexpr int kKeys = 20;
  const auto fill = [this](const std::string& prefix) {
    return [this, prefix](test::Child::Line&) {
      bool isDone = true;
      for (int i = 0; i < kKeys; ++i) isDone = isDone && settings.Set(prefix + std::to_string(i), "x");
      return isDone;
    };
  };
  test::Child one(fill("one")), two(fill("two"));
  EXPECT_TRUE(one.End());
  EXPECT_TRUE(two.End());
  for (int i = 0; i < kKeys; ++i) {
    EXPECT_EQ(Value("one" + std::to_string(i)), "x");
    EXPECT_EQ(Value("two" + std::to_string(i)), "x");
  }
}

}  // namespace
}  // namespace vanzet::project
