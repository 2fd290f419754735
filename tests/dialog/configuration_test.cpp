#include "dialog/dialog_fixture.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class Ok : public DialogTest {
 protected:
  std::string& Item(std::size_t operation, std::size_t item, std::uint32_t vdm = 1000) {
    return host.vdms[vdm].records[operation][item];
  }

  /// The lines and reads that OK causes, the store's left out.
  std::vector<std::string> CallsOfOk() {
    std::vector<std::string> calls = CallsOf("press 1\n");
    std::erase_if(calls,
                  [](const std::string& call) { return call.starts_with("OrvoReadGlobalI('i_billet"); });
    return calls;
  }
};

TEST_F(Ok, ClosesTheDialogAndTheScriptIsOver) {
  EXPECT_THAT(Run("press 1\nselect 19\n").events, ElementsAre("closed ok"));
}

TEST_F(Ok, MakesNoSolidOfAnEmptyDefinitionAndDrawsNothing) {
  EXPECT_THAT(CallsOfOk(), IsEmpty());
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(Ok, AsksForEachSpindlesDeviceAndJawAlsoWithoutASubSpindle) {
  host.TakeCalls();
  Run("");
  const auto start = host.TakeCalls("OrvoReadGlobalI").size();
  Run("press 1\n");
  // Device and jaw of two passes.
  EXPECT_EQ(host.TakeCalls("OrvoReadGlobalI").size(), start + 4);
  EXPECT_EQ(host.vdms[1000].handle, 0U);
}

TEST_F(Ok, SpinsAChuckAndExtrudesItsStandInJaw) {
  Item(1, 3) = "1 80 90 20";
  host.integers["i_return"] = 17;
  host.environment["TMP"] = "/no/such/folder";
  EXPECT_GOLDEN(Lines(CallsOfOk()), "dialog/ok_chuck.trace");
  EXPECT_EQ(host.ItemsOf(1000, 5).back(), " 0 0 90.000000\n");
}

TEST_F(Ok, SpinsNoDeviceThatIsKeptInAVdm) {
  Item(1, 3) = "105 0 5";
  EXPECT_THAT(CallsOfOk(), IsEmpty());
}

TEST_F(Ok, MakesTheJawOfAChuckThatIsKeptInAVdm) {
  Item(1, 3) = "103 0 5";
  Item(1, 6) = "5 1 2 3 4 5 6 7 8";
  host.integers["i_return"] = 17;
  const auto calls = CallsOfOk();
  EXPECT_THAT(calls, Contains("OrvoCommand('sld ext kur k30001 8.000000 i_return')"));
  EXPECT_THAT(calls, Not(Contains(testing::HasSubstr("sld spu"))));
}

TEST_F(Ok, OfATailstockWithoutASubSpindleHandlesTheCentreInTheSecondPass) {
  world.SetMachine({.tail = true});
  Item(2, 3) = "13 40 20 10 5 60 10 60";
  host.integers["i_return"] = 17;
  const auto calls = CallsOfOk();
  EXPECT_EQ(std::ranges::count(calls, "OrvoCommand('sld spu kur k30000 0 0 0 1 0 0 360 i_return')"), 1);
  EXPECT_EQ(host.ItemsOf(1000, 7).back(), " 0 0 40.000000\n") << "placed by A, as the sub spindle's device";
}

TEST_F(Ok, OfASubSpindleAndATailstockHandlesTheCentreInAPassOfItsOwn) {
  world.SetMachine({.sub = true, .tail = true});
  Item(1, 3) = "2 10 20 30 4 5 1";
  Item(2, 3) = "2 11 21 31 4 5 1";
  Item(10, 3) = "13 40 20 10 5 60 10 60";
  host.integers["i_return"] = 17;
  const auto calls = CallsOfOk();
  EXPECT_EQ(std::ranges::count(calls, "OrvoCommand('sld spu kur k30000 0 0 0 1 0 0 360 i_return')"), 3);
  EXPECT_EQ(host.ItemsOf(1000, 5).back(), " 0 0 20.000000\n");
  EXPECT_EQ(host.ItemsOf(1000, 7).back(), " 0 0 21.000000\n");
  EXPECT_EQ(host.ItemsOf(1000, 9).back(), " 0 0 40.000000\n");
  // The jaw of the sub spindle is made in its own pass and again in the centre's.
  EXPECT_EQ(std::ranges::count(calls, "OrvoCommand('sld ext kur k30001 2.050000 i_return')"), 3);
}

TEST_F(Ok, OfASubSpindleAloneDoesNotLookAtACentre) {
  world.SetMachine({.sub = true});
  Item(10, 3) = "13 40 20 10 5 60 10 60";
  EXPECT_THAT(CallsOfOk(), IsEmpty());
}

TEST_F(Ok, DeletesTheBodyThatWasMade) {
  Item(1, 3) = "1 80 90 20";
  host.integers["i_return"] = 17;
  EXPECT_THAT(CallsOfOk(), Contains("OrvoPsDeleteBody(17)"));
  host.integers["i_return"] = 0;
  const auto calls = CallsOfOk();
  EXPECT_THAT(calls, Not(Contains(testing::StartsWith("OrvoPsDeleteBody"))));
  EXPECT_THAT(calls, Contains("OrvoCommand('dll kelvane.dll exportVRML '" + world.folder.path().string() +
                              "\\tmpclamp.wrl' 1 0')"))
      << "sent all the same";
}

TEST_F(Ok, HandlesEverySpur) {
  world.SetMachine({.spurs = 3});
  host.integers["i_return"] = 17;
  Item(1, 3, 1000) = "1 80 90 20";
  Item(1, 3, 2001) = "1 80 91 20";
  Run("press 1\n");
  EXPECT_EQ(host.ItemsOf(1000, 5).back(), " 0 0 90.000000\n");
  EXPECT_THAT(world.Stored(2000), IsEmpty());
  EXPECT_EQ(host.ItemsOf(2001, 5).back(), " 0 0 91.000000\n");
}

TEST_F(Ok, DoesNotStopAtASpurWithoutADefinition) {
  world.SetMachine({.spurs = 2});
  host.integers["i_return"] = 17;
  host.vdms.erase(1000);
  Item(1, 3, 2000) = "1 80 91 20";
  EXPECT_THAT(Run("press 1\n").events, ElementsAre("closed ok"));
  EXPECT_EQ(host.ItemsOf(2000, 5).back(), " 0 0 91.000000\n");
}

TEST_F(Ok, IsNotDoneByClosing) {
  Item(1, 3) = "1 80 90 20";
  EXPECT_THAT(CallsOf("close\n"), IsEmpty());
}

class Configuration : public DialogTest {
 protected:
  static constexpr const char* kQuestion =
      "box 4 The default vanzetdefinition will be overwritten. Continue?";
};

TEST_F(Configuration, IsSavedByTheHostOverACopyOfTheTemplate) {
  const std::string target = (world.folder / "saved.vdm").string();
  host.texts["$_root_dir"] = world.folder.path().string() + "/";
  WriteBytes(world.folder / "support/Turn_Multiax/utils/template.vdm", "the template");
  WriteBytes(target, "something longer than the template");
  EXPECT_THAT(CallsOf("file \"" + target + "\"\npress 2153\n"),
              ElementsAre("OrvoReadGlobal$('$_root_dir')",
                          "OrvoCommand('vdm save '" + target + "' i_ret i_billet_vdm')"));
  EXPECT_EQ(ReadBytes(target), "the template");
}

TEST_F(Configuration, ASaveAsksWhere) {
  const Ran ran = Run("press 2153\n");
  EXPECT_THAT(ran.transcript,
              Contains(R"({"event":"file-dialog","kind":"save","filter":"VDM Files (*.vdm)|*.vdm||",)"
                       R"("default_extension":"vdm","start_folder":"","suggested":"","result":null})"));
  EXPECT_THAT(CallsOf("press 2153\n"), IsEmpty());
}

TEST_F(Configuration, IsSavedByTheHostAloneWhereThereIsNoTemplate) {
  world.SetMachine({.spurs = 2});
  host.texts.erase("$_root_dir");
  const Ran ran = Run("choose 2020 1\nfile \"/no/such/folder/x.vdm\"\npress 2153\n");
  EXPECT_THAT(ran.events, ElementsAre("save /no/such/folder/x.vdm",
                                      "box 0 [OrvoApi::MacroExport::GetGlobalStrVar Failed] $_root_dir",
                                      "closed end-of-script"));
  EXPECT_THAT(host.TakeCalls("OrvoCommand('vdm"),
              ElementsAre("OrvoCommand('vdm save '/no/such/folder/x.vdm' i_ret i_billet_vdm')"))
      << "the definition of spur 0, whichever is shown";
}

class LoadedConfiguration : public Configuration {
 protected:
  void Given(const DialogWorld::Machine& machine) {
    world.SetMachine(machine);
    auto records = host.vdms[1000].records;
    records[1][8] = "1 80 100 0 0 0 0 0";
    records[2][8] = "1 60 50 0 0 0 0";
    records[3][2] = "1 0 1 2 30 40";
    world.files["/old.vdm"] = records;
    host.environment["HideBilletOut"] = "1";
  }
};

TEST_F(LoadedConfiguration, ReplacesTheDefinitionAfterAQuestion) {
  Given({});
  const Ran ran = Run("file \"/old.vdm\"\nanswer yes\npress 2144\nstate\n");
  EXPECT_THAT(ran.events,
              ElementsAre("open /old.vdm", std::string(kQuestion) + " -> 6", "closed end-of-script"));
  EXPECT_THAT(ran.Bold(), ElementsAre(19, 34));
  EXPECT_EQ(host.ItemsOf(1000, 1)[8], "1 80 100 0 0 0 0 0");
}

TEST_F(LoadedConfiguration, IsNotReadAfterANo) {
  Given({});
  const Ran ran = Run("file \"/old.vdm\"\npress 2144\nstate\n");
  EXPECT_THAT(ran.events,
              ElementsAre("open /old.vdm", std::string(kQuestion) + " -> 7", "closed end-of-script"));
  EXPECT_THAT(world.Stored(), IsEmpty());
  EXPECT_THAT(host.TakeCalls("OrvoCommand('vdm"), IsEmpty());
}

TEST_F(LoadedConfiguration, IsNotReadAfterACancel) {
  Given({});
  Run("file \"/old.vdm\"\nanswer cancel\npress 2144\n");
  EXPECT_TRUE(host.vdms.contains(1000));
  EXPECT_THAT(host.TakeCalls("OrvoCommand('vdm"), IsEmpty());
}

TEST_F(LoadedConfiguration, ComesWhenTheOldOneIsGone) {
  Given({});
  Run("file \"/old.vdm\"\nanswer yes\npress 2144\n");
  const auto calls = host.TakeCalls();
  const auto gone = std::ranges::find(calls, "OrvoMacroVdmDelete(1000)");
  ASSERT_NE(gone, calls.end());
  EXPECT_EQ(*std::next(gone), "OrvoCommand('vdm load '/old.vdm' i_ret i_billet_vdm')");
}

TEST_F(LoadedConfiguration, LeavesTheShownSpursPicturesThoughItIsThatOfTheFirst) {
  Given({.spurs = 2});
  host.vdms[2000].records[1][8] = "1 55 100 0 0 0 0 0";
  host.vdms[2000].records[3][2] = "1 0 0 0 7 0";
  const auto calls = CallsOf("choose 2020 1\nfile \"/old.vdm\"\nanswer yes\npress 2144\n");
  EXPECT_THAT(calls, Contains("OrvoCommand('s101=h 55.000000')"));
  EXPECT_THAT(calls, Contains("OrvoCommand('s111=v 7.000000')"));
  EXPECT_THAT(calls, Contains("OrvoCommand('tra m30000 x7.000000')"));
  EXPECT_THAT(calls, Not(Contains("OrvoCommand('s101=h 80.000000')")));
}

TEST_F(LoadedConfiguration, IsNotReadWhenNoFileWasChosen) {
  const Ran ran = Run("press 2144\n");
  EXPECT_THAT(ran.transcript,
              Contains(R"({"event":"file-dialog","kind":"open","filter":"VDM Files (*.vdm)|*.vdm||",)"
                       R"("default_extension":"vdm","start_folder":"","suggested":"","result":null})"));
  EXPECT_THAT(CallsOf("press 2144\n"), IsEmpty());
}

TEST_F(LoadedConfiguration, IsReadWithoutAQuestionWhereThereIsNothingToLose) {
  Given({});
  host.vdms.clear();
  const Ran ran = Run("file \"/old.vdm\"\npress 2144\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("open /old.vdm", "closed end-of-script"));
  EXPECT_THAT(host.TakeCalls("OrvoMacroVdmDelete"), ElementsAre("OrvoMacroVdmDelete(1000)"))
      << "deleted whether it was there or not";
  EXPECT_THAT(ran.Bold(), ElementsAre(19, 34));
}

TEST_F(LoadedConfiguration, IsDrawnAtTheMainSpindlesOrigin) {
  Given({});
  EXPECT_GOLDEN(Lines(CallsOf("file \"/old.vdm\"\nanswer yes\npress 2144\n")), "dialog/load.trace");
}

TEST_F(LoadedConfiguration, IsDrawnForTheSubSpindleWithoutADatumWhereTheSelectionIs) {
  Given({.sub = true});
  const auto lines = [&](const std::string& script) {
    Given({.sub = true});
    return CallsOf(script + "file \"/old.vdm\"\nanswer yes\npress 2144\n");
  };
  const auto onMain = lines("");
  EXPECT_EQ(std::ranges::count(onMain, "OrvoCommand('fig cre BilletM z0x0y0')"), 2);
  EXPECT_THAT(onMain, Not(Contains("OrvoCommand('fig cre BilletS z0x0y0')")));
  const auto onSub = lines("select 22\n");
  EXPECT_THAT(onSub, Contains("OrvoCommand('fig cre BilletS z0x0y0')"));
  EXPECT_EQ(std::ranges::count(onSub, "OrvoCommand('s101=h 60.000000')"), 1) << "the sub spindle's billet";
  EXPECT_THAT(onSub, Contains("OrvoCommand('s111=v 0.000000')"));
  EXPECT_THAT(onSub, Not(Contains("OrvoCommand('s111=v 40.000000')")));
  EXPECT_THAT(onSub, Contains("OrvoCommand('fig del ZOffsetSub yes')"));
  EXPECT_THAT(onSub, Not(Contains("OrvoCommand('fig cre ZOffsetSub x0y0z0')"))) << "all values are zero";
}

TEST_F(LoadedConfiguration, LeavesTheActivePageAsItIs) {
  Given({});
  const Ran ran = Run("select 19\nfile \"/old.vdm\"\nanswer yes\npress 2144\nstate\nselect 19\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2022"]["text"], "0");
  EXPECT_EQ(ran.states[1]["controls"]["2022"]["text"], "80");
}

TEST_F(LoadedConfiguration, ThatCannotBeReadLeavesNone) {
  Given({});
  const Ran ran = Run("file \"/none.vdm\"\nanswer yes\npress 2144\nstate\n");
  EXPECT_FALSE(host.vdms.contains(1000));
  EXPECT_THAT(ran.Bold(), IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
