#include <sstream>

#include "language_fixture.h"

namespace vanzet::language {
namespace {

class ProjectCommands : public LanguageTest {
 protected:
  std::string Value(const std::string& name) const { return variables.Text(name).value_or("nothing"); }
  void Pick(const std::string& text) {
    std::istringstream stream(text);
    picks = *drawing::Picks::Read(stream, "picks.txt");
  }
  /// The event and the object of a pick.
  std::string PickedObject() {
    const std::string message = Outcome("dfm pick i_return i_return2 'Select Figure' 20");
    const std::string values = std::to_string(*variables.Integer("i_return")) + " " +
                               std::to_string(*variables.Integer("i_return2"));
    return message == "done" ? values : values + " " + message;
  }
};

TEST_F(ProjectCommands, TheEnvironmentIsFetchedIntoAText) {
  workplace.environment["HideBilletOut"] = "1";
  DoAll({"env 'HideBilletOut' $_return"});
  EXPECT_EQ(Value("$_return"), "1");
  DoAll({"env 'BilletDecimalPlaces' $_return"});
  EXPECT_EQ(Value("$_return"), "");
  EXPECT_EQ(Outcome("env HideBilletOut $_return"), "5: expected the key in single quotes");
  EXPECT_EQ(Outcome("env 'HideBilletOut' i_return"), "21: expected a text variable, found 'i_return'");
}

TEST_F(ProjectCommands, SettingsAreReadAndStored) {
  DoAll({"file a '' $_project 'CLAMP_DB_PATH' 'D:\\it's here\\clamp.cld'",
         "file e '' $_project 'CLAMP_DB_PATH' $_return"});
  EXPECT_EQ(Value("$_return"), "D:\\it's here\\clamp.cld");
  DoAll({"file e '' $_project 'NONE' $_return"});
  EXPECT_EQ(Value("$_return"), "");
  EXPECT_EQ(Outcome("file a 'x' $_project 'K' 'v'"),
            "8: expected an empty text: the project's own file is the only one");
  EXPECT_EQ(Outcome("file a '' $_other 'K' 'v'"), "11: expected '$_project', found '$_other 'K' 'v''");
  EXPECT_EQ(Outcome("file x"), "6: expected one of 'a', 'e' after 'file', found 'x'");
}

TEST_F(ProjectCommands, VariablesAreAssigned) {
  ASSERT_TRUE(variables.Set("$_misc", std::string("a name")));
  DoAll({"i1215=5", "i_n = i1215", "$_return=$_misc", "$_x='it's a text'", "w_x=-2.5", "w_y=w_x"});
  EXPECT_EQ(variables.Integer("i1215"), 5);
  EXPECT_EQ(variables.Integer("i_n"), 5);
  EXPECT_EQ(Value("$_return"), "a name");
  EXPECT_EQ(Value("$_x"), "it's a text");
  EXPECT_EQ(variables.Real("w_y"), -2.5);
}

TEST_F(ProjectCommands, AWrongAssignmentChangesNothing) {
  DoAll({"i_n=1", "$_x='x'", "w_x=1"});
  EXPECT_EQ(Outcome("i_n="), "5: expected an integer");
  EXPECT_EQ(Outcome("i_n=2.5"),
            "5: expected an integer or an integer variable that has a value, found '2.5'");
  EXPECT_EQ(Outcome("i_n=i_none"),
            "5: expected an integer or an integer variable that has a value, found 'i_none'");
  EXPECT_EQ(Outcome("i_n=2 3"), "7: expected the end of the line, found '3'");
  EXPECT_EQ(Outcome("$_x=$_none"),
            "5: expected a text in single quotes or a text variable that has a value, found '$_none'");
  EXPECT_EQ(Outcome("$_x='open"), "5: the closing quote is missing");
  EXPECT_EQ(Outcome("w_x=y"), "5: expected a number or a real variable, found 'y'");
  EXPECT_EQ(Outcome("x=5"), "1: expected a command or a variable that begins with i, w or $, found 'x'");
  EXPECT_EQ(variables.Integer("i_n"), 1);
  EXPECT_EQ(Value("$_x"), "x");
  EXPECT_EQ(variables.Real("w_x"), 1);
}

TEST_F(ProjectCommands, AFigureIsPickedByItsName) {
  DoAll({"fig cre Zebra x0y0z0", "fig cre Ant x0y0z0"});
  workplace.figures["Bear"] = {};
  Pick("figure Zebra\nfigure Bear\nfigure Ant\n");
  EXPECT_EQ(PickedObject(), "151 2") << "the drawing's figures come first, in the order of bytes";
  DoAll({"i1215=2", "dfm inf i1215", "$_return=$_misc"});
  EXPECT_EQ(Value("$_return"), "Zebra");
  EXPECT_EQ(PickedObject(), "151 3");
  EXPECT_EQ(PickedObject(), "151 1");
}

TEST_F(ProjectCommands, NumbersOfObjectsStay) {
  DoAll({"fig cre B x0y0z0"});
  Pick("figure B\nfigure A\nfigure B\n");
  EXPECT_EQ(PickedObject(), "151 1");
  DoAll({"fig cre A x0y0z0"});
  EXPECT_EQ(PickedObject(), "151 2");
  EXPECT_EQ(PickedObject(), "151 1");
}

TEST_F(ProjectCommands, APickThatIsCancelledOrMissingIsCancelled) {
  ASSERT_TRUE(variables.Set("i_return2", -5));
  Pick("cancel\n");
  EXPECT_EQ(PickedObject(), "27 0");
  EXPECT_EQ(PickedObject(), "27 0") << "none is left";
  DoAll({"dfm umark -1"});
}

TEST_F(ProjectCommands, APickThatFailsIsReportedAndCancelledLestItIsAskedForEver) {
  Pick("figure None\nposition 1 2\n");
  EXPECT_EQ(PickedObject(), "27 0 picks.txt:1: figure 'None' does not exist");
  EXPECT_EQ(PickedObject(), "27 0 picks.txt:2: expected 'figure' or 'cancel', found 'position'");
}

TEST_F(ProjectCommands, PromptsMayHoldQuotes) {
  EXPECT_EQ(Outcome("dfm pick i_return i_return2 'Pick 'em' all' 20"), "done");
  EXPECT_EQ(variables.Integer("i_return"), 27);
}

TEST_F(ProjectCommands, AMissingObjectHasNoInformation) {
  EXPECT_EQ(Outcome("dfm inf 7"), "9: object 7 does not exist");
  EXPECT_EQ(Outcome("dfm inf i_none"),
            "9: expected the number of an object or an integer variable that has a value, found 'i_none'");
  EXPECT_EQ(Value("$_misc"), "");
}

TEST_F(ProjectCommands, APositionIsPickedByTheMacro) {
  Pick("position -12.5 40\ncancel\nfigure F\n");
  DoAll({"call vbpickel POS"});
  EXPECT_NE(variables.Integer("i_return"), 27);
  EXPECT_EQ(variables.Real("w_return"), -12.5);
  EXPECT_EQ(variables.Real("w_return2"), 40);
  DoAll({"call vbpickel POS"});
  EXPECT_EQ(variables.Integer("i_return"), 27);
  EXPECT_EQ(variables.Real("w_return"), -12.5) << "as it was";
  ASSERT_TRUE(variables.Set("i_return", 5));
  EXPECT_EQ(Outcome("call vbpickel POS"), "picks.txt:3: expected 'position' or 'cancel', found 'figure'");
  EXPECT_EQ(variables.Integer("i_return"), 27);
  EXPECT_EQ(Outcome("call vbpickel ALL"), "15: expected 'POS', found 'ALL'");
}

TEST_F(ProjectCommands, HelpNeedsATopic) {
  EXPECT_EQ(Outcome("call loadhelp"), "14: $_helptopic names no topic");
  EXPECT_THAT(workplace.helped, testing::IsEmpty());
  DoAll({"$_helptopic='mat_vanzet53'", "call loadhelp"});
  EXPECT_THAT(workplace.helped, testing::ElementsAre("mat_vanzet53"));
}

TEST_F(ProjectCommands, ADrawingThatCannotBeReadCancelsPicksAndStopsDrawing) {
  test::WriteBytes(folder / "drawing.txt", "rubbish\n");
  drawing::Board damaged(folder.path());
  Surroundings around{variables, store, paths, damaged, picks, bodies, mesh, workplace};
  const std::string fault = (folder / "drawing.txt").string() + ":1: not a drawing: expected 'drawing 1'";
  for (const char* line : {"fig cre F x0y0z0", "s1=h 0", "red -1", "dfm pick i_return i_return2 'x' 20"}) {
    EXPECT_EQ(language::Run(line, around).fault().Message(), fault) << line;
  }
  EXPECT_EQ(variables.Integer("i_return"), 27);
  EXPECT_EQ(test::ReadBytes(folder / "drawing.txt"), "rubbish\n");
}

}  // namespace
}  // namespace vanzet::language
