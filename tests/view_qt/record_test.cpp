#include <cstdlib>

#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "view/script/script_view.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;

/// A person works in the window and is recorded; then the recording is played without a window.
class Recorded : public testing::Test {
 protected:
  Recorded() { setenv("VANZET_RECORD", (folder / "job.txt").c_str(), 1); }
  ~Recorded() override { unsetenv("VANZET_RECORD"); }

  /// The lines that were recorded, without the comment at their head.
  std::vector<std::string> Record(DialogWorld& world, const std::string& script) {
    EXPECT_EQ(world.Run(script).events.back(), "closed ok");
    std::istringstream text(ReadBytes(folder / "job.txt"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    EXPECT_TRUE(!lines.empty() && lines.front().starts_with("# "));
    lines.erase(lines.begin());
    return lines;
  }

  void Replay(DialogWorld& world) {
    view::ScriptView view((folder / "job.txt").string(),
                          std::make_shared<view::Transcript>((folder / "replay.jsonl").string()),
                          {.isStrict = true});
    const platform::PresenterScope boxes(view.Boxes());
    const platform::FilePresenterScope files(view.Files());
    dialog::CDlgMain dialog(&world.window, view);
    dialog.RunModalLoop(4);
    EXPECT_EQ(dialog.Result(), view::kClosedByOk) << ReadBytes(folder / "replay.jsonl");
  }

  /// The definition that the person made, after a replay made the same one.
  std::vector<std::string> Replayed(DialogWorld& world, const DialogWorld::Machine& machine) {
    const auto stored = world.Stored();
    EXPECT_FALSE(stored.empty());
    world.SetMachine(machine);
    Replay(world);
    EXPECT_EQ(world.Stored(), stored);
    return stored;
  }

  const TemporaryFolder folder;
};

TEST_F(Recorded, ABilletIsThatOfThePersonWhenPlayed) {
  DialogWorld world;
  EXPECT_THAT(Record(world, "select 19\nset 2022 80\nset 2023 \"100,5\"\nset 2138 0\npress 2016\npress 1\n"),
              ElementsAre("select main/billet/cylinder", "set outer_diameter 80", "set part_length \"100,5\"",
                          "set shown 0", "press select", "press ok"));
  Replayed(world, {});
}

TEST_F(Recorded, DevicesAreChosenByTheirNames) {
  DialogWorld world;
  WriteBytes(world.catalogue, "Chuck \"1\"\n1 80 90 20\nJaw A\n5 1 2 3 4 5 6 7 8\n");
  EXPECT_THAT(
      Record(world,
             "select 3\nchoose 2124 0\npress 2154\nselect 4\nchoose 2124 0\nset 2181 4\n"
             "press 2154\npress 1\n"),
      ElementsAre("select main/chuck", "choose device \"Chuck \\\"1\\\"\"", "press select", "select main/jaw",
                  "choose device \"Jaw A\"", "set jaws 4", "press select", "press ok"));
  Replayed(world, {});
}

TEST_F(Recorded, APickIsTheValueThatItBrought) {
  DialogWorld world;
  world.positions = {{.status = 0, .axial = 7, .radial = 21}};
  const auto lines = Record(world, "select 19\npress 2005\nset 2023 50\npress 2016\npress 1\n");
  EXPECT_THAT(lines, ElementsAre("select main/billet/cylinder", "set outer_diameter 42", "set part_length 50",
                                 "press select", "press ok"));
  Replayed(world, {});
}

TEST_F(Recorded, AnAnswerPrecedesTheLineThatAsked) {
  DialogWorld world;
  WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\n");
  const auto lines = Record(world, "answer yes\nselect 36\nchoose 2123 0\npress 2127\npress 1\n");
  EXPECT_THAT(lines, ElementsAre("select new/chuck", "choose name \"Chuck 1\"", "answer yes",
                                 "press delete_device", "press ok"));
}

TEST_F(Recorded, AChosenFileAndAMenuAreInTheScript) {
  DialogWorld world;
  const auto lines = Record(world, "file \"/own device.vdm\"\nselect 3\npress 2000\ncontext 2\npress 1\n");
  EXPECT_THAT(lines, ElementsAre("select main/chuck", "file \"/own device.vdm\"", "press browse",
                                 "context main", "press ok"));
}

}  // namespace
}  // namespace vanzet::test
