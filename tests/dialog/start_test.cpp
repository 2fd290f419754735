#include "dialog/dlg_main.h"
#include "host/message_ids.h"
#include "view/ids.h"

#include "dialog/dialog_fixture.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class StartTest : public DialogTest {};

TEST_F(StartTest, ShowsTheEmptyPageAndNoSelection) {
  const Ran ran = Run("state\n");
  EXPECT_EQ(ran.State()["caption"], "Equipment Definition");
  EXPECT_EQ(ran.State()["page"], "CPageEmpty");
  EXPECT_EQ(ran.State()["selected"], 0);
  EXPECT_EQ(ran.State()["spindle"], 0);
  EXPECT_EQ(ran.State()["device_type"], 0);
  EXPECT_EQ(ran.State()["controls"], json::object());
}

TEST_F(StartTest, GivesTheDialogTheTextsOfTheHost) {
  host.translations = {{message::kEquipmentDefinition, "Ausr\xC3\xBCstung"},
                       {message::kOk, "Ja"},
                       {message::kHelp, "Hilfe"},
                       {message::kLoadConfiguration, "Laden"},
                       {message::kSaveConfiguration, "Sichern"}};
  const Ran ran = Run("state\n");
  const json& controls = ran.State()["dialog"];
  EXPECT_EQ(ran.State()["caption"], "Ausr\xC3\xBCstung");
  EXPECT_EQ(controls["1"]["text"], "Ja");
  EXPECT_EQ(controls["2012"]["text"], "Hilfe");
  EXPECT_EQ(controls["2144"]["text"], "Laden");
  EXPECT_EQ(controls["2153"]["text"], "Sichern");
}

TEST_F(StartTest, HidesCancelAndTheMarkOfThePages) {
  const Ran ran = Run("state\n");
  const json& controls = ran.State()["dialog"];
  EXPECT_EQ(controls["2"]["visible"], false);
  EXPECT_EQ(controls["2151"]["visible"], false);
  EXPECT_EQ(controls["2020"]["visible"], false);
  EXPECT_THAT(Run("press 2\n").events, ElementsAre("error 1 control 2 is hidden", "closed close"));
}

TEST_F(StartTest, HasNoSpursToChooseFromWhereThereIsOne) {
  const Ran ran = Run("state\n");
  EXPECT_EQ(ran.State()["spur"], -1);
  EXPECT_EQ(ran.State()["dialog"]["2020"]["items"], json::array());
}

TEST_F(StartTest, OffersTheSpursOfTheMachineWithTheFirstSelected) {
  world.SetMachine({.spurs = 2});
  Ran ran = Run("state\n");
  const json& combo = ran.State()["dialog"]["2020"];
  EXPECT_EQ(combo["items"], json({"Spindle 1", "Spindle 2"}));
  EXPECT_EQ(combo["selected"], 0);
  EXPECT_EQ(combo["text"], "Spindle 1");
  EXPECT_EQ(combo["visible"], true);
  EXPECT_EQ(ran.State()["spur"], 0);
  host.translations = {{message::kSpindle, "Spindel"}};
  world.SetMachine({.spurs = 50});
  ran = Run("choose 2020 49\nstate\n");
  EXPECT_EQ(ran.State()["dialog"]["2020"]["items"].size(), 50U);
  EXPECT_EQ(ran.State()["dialog"]["2020"]["text"], "Spindel 50");
}

TEST_F(StartTest, GoesFromTextsOverCatalogueAndMachineToTheRecords) {
  Run("");
  std::vector<std::string> calls = host.TakeCalls();
  std::erase_if(calls, [](const std::string& call) {
    return call.starts_with("OrvoMacroVdm") && !call.starts_with("OrvoMacroVdmOpen");
  });
  EXPECT_GOLDEN(Lines(calls), "dialog/start.trace");
}

TEST_F(StartTest, ReadsTheCatalogueBeforeTheMachine) {
  host.environment["ppdefini"] = "/no/such/machine.ini";
  host.environment["clampmdb"] = "/no/such.cld";
  EXPECT_THAT(
      Run("").events,
      ElementsAre("box 36 Could not find clampdevice file /no/such.cld! Do you want to search for it? -> 7",
                  "box 48 [File can not open for read] /no/such/machine.ini", "closed end-of-script"));
}

TEST_F(StartTest, SearchesTheCatalogueByTheLeadingLinesOfTheScript) {
  WriteBytes(world.folder / "other.cld", "Chuck 1\n1 10 20 30\n");
  host.environment["clampmdb"] = "/no/such.cld";
  const std::string other = (world.folder / "other.cld").string();
  const Ran ran = Run("answer yes\nfile \"" + other + "\"\nselect 3\nstate\n");
  EXPECT_THAT(ran.events, Contains("open " + other));
  EXPECT_EQ(ran.Control(control::kDeviceList)["items"], json({"Chuck 1"}));
  EXPECT_THAT(host.TakeCalls(),
              Contains("OrvoCommand('file a '' $_project 'CLAMP_DB_PATH' '" + other + "'')"));
}

TEST_F(StartTest, GoesOnWithAnEmptyCatalogue) {
  host.environment["clampmdb"] = "/no/such.cld";
  for (const char* script : {"select 3\nstate\n", "answer yes\nfile cancel\nselect 3\nstate\n"}) {
    EXPECT_EQ(Run(script).Control(control::kDeviceList)["items"], json::array()) << script;
  }
}

TEST_F(StartTest, HandsTheHostsWindowAndItsFlagToTheView) {
  struct Watching final : view::DialogView {
    std::int32_t Serve(view::Dialog& dialog, void* parent, std::int32_t flags) override {
      parentSeen = parent;
      flagsSeen = flags;
      dialog.Close();
      return dialog.Result();
    }
    void StateChanged(const view::DialogState& state) override { caption = state.caption; }
    void SetVisible(bool) override {}
    void Focus(std::int32_t, bool) override {}
    std::optional<std::int32_t> Popup(std::int32_t, const std::vector<view::PopupEntry>&) override {
      return std::nullopt;
    }
    void* Window() override { return this; }
    void* parentSeen = nullptr;
    std::int32_t flagsSeen = 0;
    std::string caption;
  } view;
  dialog::CDlgMain dialog(&world.window, view);
  EXPECT_EQ(dialog.RunModalLoop(4), view::kClosedByFrame);
  EXPECT_EQ(view.parentSeen, &world.window);
  EXPECT_EQ(view.flagsSeen, 4);
  EXPECT_EQ(view.caption, "Equipment Definition");
  EXPECT_FALSE(dialog.IsOpen());
  dialog.EndModalLoop(view::kClosedByOk);
  EXPECT_EQ(dialog.Result(), view::kClosedByOk);
  dialog.EndDialog(0);
  EXPECT_EQ(dialog.Result(), 0);
  dialog.SelectNode(node::kBilletCylindricMain);
  EXPECT_EQ(dialog.State().selectedNode, 0) << "a closed dialog takes no events";
}

TEST_F(StartTest, HelpSetsTheTopicAndRunsTheHostsMacro) {
  EXPECT_THAT(CallsOf("press 2012\n"), ElementsAre("OrvoWriteGlobal$('$_helptopic', 'mat_vanzet53')",
                                                   "OrvoMacroExec('loadhelp', '')"));
  EXPECT_EQ(host.texts["$_helptopic"], "mat_vanzet53");
}

TEST_F(StartTest, ClosesWithoutAnyWriting) {
  Run("select 19\nset 2022 80\nset 2023 100\nclose\n");
  EXPECT_EQ(world.Stored(), std::vector<std::string>());
}

}  // namespace
}  // namespace vanzet::test
