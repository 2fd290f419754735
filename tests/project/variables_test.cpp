#include "project/variables.h"

#include <gtest/gtest.h>

namespace vanzet::project {
namespace {

TEST(Variables, StartWithThoseOfEveryProject) {
  const Variables variables;
  EXPECT_EQ(variables.Integer("i_billet_vdm"), 1000);
  EXPECT_EQ(variables.Integer("i_billet_vdm_spispur"), 1001);
  EXPECT_EQ(variables.Integer("i_tool_collect_vdm"), 1900);
  EXPECT_EQ(variables.Real("w_return"), 0.0);
  EXPECT_EQ(variables.Text("$_return"), "");
}

TEST(Variables, HaveTheTypeOfTheirNamesFirstCharacter) {
  Variables variables;
  EXPECT_TRUE(variables.Set("i1215", 7));
  EXPECT_TRUE(variables.Set("w_x", 1.5));
  EXPECT_TRUE(variables.Set("$_x", "text"));
  EXPECT_EQ(variables.Integer("i1215"), 7);
  EXPECT_EQ(variables.Real("w_x"), 1.5);
  EXPECT_EQ(variables.Text("$_x"), "text");
  EXPECT_EQ(variables.Text("i1215"), std::nullopt) << "an integer is not a text";
}

TEST(Variables, RefuseValuesOfAnotherType) {
  Variables variables;
  EXPECT_FALSE(variables.Set("w_x", 7));
  EXPECT_FALSE(variables.Set("i_x", 1.5));
  EXPECT_FALSE(variables.Set("i_x", "text"));
  EXPECT_FALSE(variables.Set("x", "text"));
  EXPECT_FALSE(variables.Set("", 1));
  EXPECT_EQ(variables.Integer("i_x"), std::nullopt);
}

TEST(Variables, DoNotExistBeforeTheirFirstValue) {
  EXPECT_EQ(Variables().Integer("i_none"), std::nullopt);
}

TEST(Variables, AreReadFromTextByTheirType) {
  Variables variables;
  EXPECT_TRUE(variables.SetFromText("i_x", " -12 "));
  EXPECT_TRUE(variables.SetFromText("w_x", "1.25"));
  EXPECT_TRUE(variables.SetFromText("$_x", "12 mm"));
  EXPECT_EQ(variables.Integer("i_x"), -12);
  EXPECT_EQ(variables.Real("w_x"), 1.25);
  EXPECT_EQ(variables.Text("$_x"), "12 mm");
}

TEST(Variables, RefuseTextThatNamesNoNumber) {
  Variables variables;
  EXPECT_EQ(variables.SetFromText("i_x", "abc").fault().text, "i_x: expected an integer, found 'abc'");
  EXPECT_EQ(variables.SetFromText("i_x", "1.5").fault().text, "i_x: expected an integer, found '1.5'");
  EXPECT_EQ(variables.SetFromText("i_x", "99999999999").fault().text,
            "i_x: expected an integer, found '99999999999'");
  EXPECT_EQ(variables.SetFromText("w_x", "1,5").fault().text, "w_x: expected a number, found '1,5'");
  EXPECT_FALSE(variables.SetFromText("x", "1"));
}

}  // namespace
}  // namespace vanzet::project
