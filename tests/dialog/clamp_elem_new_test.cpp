#include "dialog/dialog_fixture.h"
#include "host/message_ids.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ClampElemNew : public DialogTest {
 protected:
  ClampElemNew() {
    WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\nJaw 1\n5 1 2 3 4 5 6 7 8\nChuck 2\n1 1 2 3\n");
  }

  std::string File() { return ReadBytes(world.catalogue); }

  /// Types all values but those left out, each 1, and a name, and saves.
  Ran SaveWithout(int node, const std::string& leftOut) {
    WriteBytes(world.catalogue, "");
    const std::map<char, int> edits = {
        {'A', control::kEditA}, {'B', control::kEditB}, {'C', control::kEditC},
        {'D', control::kEditD}, {'E', control::kEditE}, {'F', control::kEditF},
        {'G', control::kEditG}, {'H', control::kEditH}, {'I', control::kEditI}};
    const Ran page = Run("select " + std::to_string(node) + "\nstate\n");
    std::string script = "select " + std::to_string(node) + "\nset 2123 New\n";
    for (const auto& [letter, edit] : edits) {
      const bool isOpen = page.Control(edit)["enabled"];
      if (isOpen && leftOut.find(letter) == std::string::npos)
        script += "set " + std::to_string(edit) + " 1\n";
    }
    return Run(script + "press 2152\nstate\n");
  }
};

TEST_F(ClampElemNew, ShowsTheNamesAndThePictureOfItsType) {
  EXPECT_GOLDEN(Readable(Run("select 36\nstate\nselect 40\nstate\n")), "dialog/clamp_elem_new.transcript");
}

TEST_F(ClampElemNew, HasAPictureForEachTypeAndNoneForTheBranches) {
  const std::map<int, int> pictures = {{36, 2056}, {37, 2058}, {38, 2071}, {39, 2060}, {40, 0},    {41, 2062},
                                       {42, 2063}, {43, 2064}, {44, 2065}, {45, 2066}, {46, 2067}, {47, 2068},
                                       {48, 2069}, {49, 0},    {50, 2053}, {51, 2054}};
  for (const auto& [node, picture] : pictures) {
    const Ran ran = Run("select " + std::to_string(node) + "\nstate\n");
    EXPECT_EQ(ran.Control(control::kNewPicture)["bitmap"], picture) << node;
  }
}

TEST_F(ClampElemNew, SavesANewDeviceAndEmptiesTheName) {
  const Ran ran = Run("select 36\nset 2123 \"Chuck 3\"\nset 2033 5\nset 2034 6,5\npress 2152\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_TRUE(
      File().ends_with("Chuck 2\n1 1 2 3\nChuck 3\n1 0.000000 5.000000 6.500000 0.000000 0.000000 0.000000 "
                       "0.000000 0.000000 0.000000 0.000000\n"))
      << File() << "A may stay 0";
  EXPECT_EQ(ran.TextOf(control::kNameList), "");
  EXPECT_EQ(ran.Control(control::kNameList)["items"], json({"Chuck 1", "Chuck 2", "Chuck 3"}));
  EXPECT_EQ(ran.TextOf(control::kEditB), "5") << "the values stay";
  EXPECT_THAT(world.Stored(), IsEmpty()) << "no definition is touched";
}

TEST_F(ClampElemNew, AChoiceTakesTheValuesAndTheirTypeOfTheCatalogue) {
  const Ran ran = Run("select 36\nchoose 2123 1\nstate\nchoose 2123 -1\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2123"]["text"], "Chuck 2");
  EXPECT_EQ(ran.states[0]["controls"]["2034"]["text"], "3");
  EXPECT_EQ(ran.TextOf(control::kEditC), "0");
}

TEST_F(ClampElemNew, AChoiceIsOfTheTypeOfTheFirstDeviceOfItsName) {
  WriteBytes(world.catalogue, "Twin\n2 1 2 3 4 5 6\nTwin\n1 80 90 20\n");
  const Ran ran = Run("select 36\nchoose 2123 \"Twin\"\nset 2031 9\nanswer yes\nstate\npress 2152\n");
  EXPECT_EQ(ran.TextOf(control::kEditF), "6");
  EXPECT_EQ(ran.Control(control::kEditF)["enabled"], false) << "the page keeps to the type of its node";
  EXPECT_EQ(ran.Control(control::kNewPicture)["bitmap"], 2056);
  EXPECT_TRUE(File().starts_with("Twin\n2 9.000000 2.000000 3.000000 4.000000 5.000000 6.000000 ")) << File();
}

TEST_F(ClampElemNew, WithoutATypeNothingIsSaved) {
  const std::string before = File();
  for (const char* script : {"select 40\nset 2123 X\npress 2152\n", "select 49\npress 2152\n",
                             "select 36\nchoose 2123 0\nchoose 2123 -1\nset 2123 X\npress 2152\n"}) {
    EXPECT_THAT(Run(script).events, ElementsAre("focus 2158", "closed end-of-script")) << script;
  }
  EXPECT_EQ(File(), before);
}

TEST_F(ClampElemNew, ComesUpBlankEachTime) {
  const Ran ran = Run("select 36\nchoose 2123 0\nselect 41\nselect 36\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kEditA), "0");
  EXPECT_EQ(ran.TextOf(control::kNameList), "");
  EXPECT_EQ(ran.Control(control::kNameList)["selected"], -1);
}

TEST_F(ClampElemNew, NeedsAName) {
  const std::string before = File();
  EXPECT_THAT(Run("select 36\npress 2152\n").events,
              ElementsAre("focus 2158", "box 0 Name for clampdevice is missing!", "focus 2123",
                          "closed end-of-script"));
  EXPECT_EQ(File(), before);
}

TEST_F(ClampElemNew, StopsAtWhatIsNoNumber) {
  for (const char* button : {"2152", "2127"}) {
    EXPECT_THAT(
        Run(std::string("select 36\nset 2123 \"Chuck 1\"\nset 2031 x\npress ") + button + "\n").events,
        ElementsAre("focus 2158", "box 0 [Equipment Definition] Please enter a number.", "focus 2031",
                    "closed end-of-script"));
  }
}

TEST_F(ClampElemNew, NeedsTheValuesOfEachType) {
  const std::map<char, int> edits = {{'A', control::kEditA}, {'B', control::kEditB}, {'C', control::kEditC},
                                     {'D', control::kEditD}, {'E', control::kEditE}, {'F', control::kEditF},
                                     {'G', control::kEditG}, {'H', control::kEditH}, {'I', control::kEditI}};
  const std::map<int, std::string> needed = {
      {36, "BC"},       {37, "ABCDE"},    {38, "ABCDEFGH"}, {39, "ABCDEFGI"}, {41, "ABCDEFGH"},
      {42, "ABCDEFGH"}, {43, "ABCDEF"},   {44, "ABCDEF"},   {45, "ABCD"},     {46, "ABCDE"},
      {47, "ABCDEFGH"}, {48, "ABCDEFGH"}, {50, "ABCDEFG"},  {51, "ABCDEFGHI"}};
  for (const auto& [node, letters] : needed) {
    for (const auto& [letter, edit] : edits) {
      const Ran ran = SaveWithout(node, std::string(1, letter));
      const bool isNeeded = letters.find(letter) != std::string::npos;
      EXPECT_EQ(File().empty(), isNeeded) << node << letter;
      if (!isNeeded) continue;
      const std::string end = std::string(1, letter) + " is missing!";
      EXPECT_EQ(ran.events.at(1), "box 0 Value " + end) << node;
      EXPECT_EQ(ran.events.at(2), "focus " + std::to_string(edit));
    }
  }
}

TEST_F(ClampElemNew, AsksForTheFirstMissingValue) {
  EXPECT_EQ(SaveWithout(38, "CF").events.at(1), "box 0 Value C is missing!");
  host.translations = {{message::kNoDeviceValue, "# fehlt, ja #"}};
  EXPECT_EQ(SaveWithout(38, "F").events.at(1), "box 0 F fehlt, ja F");
}

TEST_F(ClampElemNew, AsksBeforeItOverwritesADeviceOfTheFile) {
  const Ran ran = Run("select 36\nchoose 2123 0\nset 2031 81\nanswer yes\npress 2152\n");
  EXPECT_THAT(ran.events,
              ElementsAre("focus 2158", "box 4 Name already exist. Overwrite? -> 6", "closed end-of-script"));
  EXPECT_TRUE(File().starts_with("Chuck 1\n1 81.000000 ")) << File();
}

TEST_F(ClampElemNew, ANoLeavesTheFileAndKeepsTheValuesUntilTheDialogIsClosed) {
  const std::string before = File();
  const Ran ran =
      Run("select 36\nchoose 2123 0\nset 2031 81\nanswer no\npress 2152\nselect 36\nchoose 2123 0\nstate\n");
  EXPECT_EQ(File(), before);
  EXPECT_EQ(ran.TextOf(control::kEditA), "81");
  EXPECT_EQ(Run("select 36\nchoose 2123 0\nstate\n").TextOf(control::kEditA), "80");
}

TEST_F(ClampElemNew, TellsNamesApartByCase) {
  Run("select 36\nset 2123 \"chuck 1\"\nset 2033 5\nset 2034 6\npress 2152\n");
  EXPECT_THAT(Run("select 36\nstate\n").Control(control::kNameList)["items"],
              json({"Chuck 1", "Chuck 2", "chuck 1"}));
}

TEST_F(ClampElemNew, DeletesADeviceAfterAQuestion) {
  const Ran ran = Run("select 36\nchoose 2123 0\npress 2127\nanswer yes\npress 2127\nstate\n");
  EXPECT_THAT(ran.events,
              ElementsAre("focus 2158", "box 4 Delete? -> 7", "box 4 Delete? -> 6", "closed end-of-script"));
  EXPECT_EQ(File(), "Jaw 1\n5 1 2 3 4 5 6 7 8\nChuck 2\n1 1 2 3\n");
  EXPECT_EQ(ran.Control(control::kNameList)["items"], json({"Chuck 2"}));
  EXPECT_EQ(ran.TextOf(control::kNameList), "");
}

TEST_F(ClampElemNew, DeletesByATypedNameAndNothingWithoutOne) {
  EXPECT_THAT(Run("select 36\npress 2127\n").events, ElementsAre("focus 2158", "closed end-of-script"));
  Run("answer yes\nselect 36\nset 2123 \"Jaw 1\"\npress 2127\n");
  EXPECT_EQ(File(), "Chuck 1\n1 80 90 20\nChuck 2\n1 1 2 3\n") << "of whatever type";
}

TEST_F(ClampElemNew, AMissingFileLeadsToASearch) {
  const std::string other = (world.folder / "other.cld").string();
  const std::string searched = "box 36 Could not find clampdevice file " + world.catalogue.string() +
                               "! Do you want to search for it?";
  WriteBytes(other, "Collet 9\n2 1 2 3\n");
  // The file goes after the dialog has read it.
  host.onCall = [&](const std::string& name) {
    if (name == "OrvoMacroVdmExists") std::filesystem::remove(world.catalogue);
  };
  const Ran ran =
      Run("select 36\nset 2123 X\nset 2033 5\nset 2034 6\nanswer yes\nfile \"" + other + "\"\npress 2152\n");
  EXPECT_THAT(ran.events,
              ElementsAre("focus 2158", searched + " -> 6", "open " + other, "closed end-of-script"));
  EXPECT_TRUE(ReadBytes(other).starts_with("Collet 9\n2 1 2 3\nX\n1 0.000000 5.000000 6.000000 "))
      << ReadBytes(other);
}

TEST_F(ClampElemNew, ADeleteThatDoesNotReachTheFileSaysNothing) {
  // The file goes after the dialog has read it.
  host.onCall = [&](const std::string& name) {
    if (name == "OrvoMacroVdmExists") std::filesystem::remove(world.catalogue);
  };
  const Ran ran = Run("select 36\nchoose 2123 0\nanswer yes\npress 2127\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "box 4 Delete? -> 6", "closed end-of-script"));
  EXPECT_EQ(ran.Control(control::kNameList)["items"], json({"Chuck 2"})) << "gone from memory";
  EXPECT_FALSE(std::filesystem::exists(world.catalogue));
}

TEST_F(ClampElemNew, AnOddCatalogueFillsTheListAsFarAsItGoes) {
  WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\nLeft over\n");
  const Ran ran = Run("select 36\nstate\n");
  EXPECT_EQ(ran.Control(control::kNameList)["items"], json({"Chuck 1"}));
}

}  // namespace
}  // namespace vanzet::test
