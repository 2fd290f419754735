#include <algorithm>
#include <filesystem>
#include <tuple>

#include "dialog/dialog_fixture.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kOpenElsewhere =
    "box 0 [OrvoApi::MacroVdm] 1000: Open: already open by another process";

/// What others do while a dialog is open: "press 2012", the help, is where they do it in a script.
class Disturbed : public DialogTest {
 protected:
  Disturbed() {
    world.SetMachine({.sub = true, .tail = true, .lun = true});
    WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\nJaw 1\n5 1 2 3 4 5 6 7 8\n");
    host.integers["i_return"] = 17;
    host.onMacro = [this](const std::string& macro, const std::string&) {
      if (macro == "loadhelp" && meanwhile) meanwhile();
    };
  }

  std::function<void()> meanwhile;
};

TEST_F(Disturbed, ADefinitionThatIsOpenElsewhereIsToldAndStaysAsItIs) {
  host.vdms[1000].openElsewhere = true;
  const auto before = host.vdms[1000].records;
  const Ran ran =
      Run("select 3\nchoose 2124 0\npress 2154\nselect 19\nset 2022 8\nset 2023 9\npress 2016\n"
          "select 34\nset 2207 5\npress 2015\nselect 16\nset 2019 1\npress 2015\ncontext 2 51000\n"
          "press 1\n");
  EXPECT_THAT(ran.events, Contains(kOpenElsewhere));
  EXPECT_EQ(ran.events.back(), "closed ok");
  EXPECT_EQ(host.vdms[1000].records, before);
  EXPECT_EQ(host.vdms[1000].handle, 0U);
}

TEST_F(Disturbed, ADefinitionThatIsTakenBetweenTwoClicksIsNotWritten) {
  meanwhile = [&] { host.vdms[1000].openElsewhere = true; };
  const Ran ran = Run("select 19\nset 2022 8\nset 2023 9\npress 2012\npress 2016\n");
  EXPECT_THAT(ran.events, Contains(kOpenElsewhere));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(Disturbed, ADefinitionThatVanishesBetweenTwoClicksIsNotMadeAgain) {
  meanwhile = [&] { host.vdms.erase(1000); };
  const Ran ran =
      Run("select 3\nchoose 2124 0\npress 2012\npress 2154\nselect 34\nset 2207 5\npress 2015\npress 1\n");
  EXPECT_THAT(ran.events, Contains(HasSubstr("Open: vdm doesn't exist")));
  EXPECT_EQ(ran.events.back(), "closed ok");
  EXPECT_FALSE(host.vdms.contains(1000));
}

TEST_F(Disturbed, ACatalogueThatVanishesBetweenTwoClicksIsSearchedAndBegunAnew) {
  meanwhile = [&] { std::filesystem::remove(world.catalogue); };
  const Ran ran =
      Run("select 36\nset 2123 New\nset 2033 1\nset 2034 2\npress 2012\npress 2152\nselect 3\nstate\n");
  EXPECT_THAT(ran.events,
              Contains(AllOf(StartsWith("box 36 "), HasSubstr(world.catalogue.string()), EndsWith(" -> 7"))));
  EXPECT_THAT(ran.Control(control::kDeviceList)["items"], ElementsAre("Chuck 1", "New"))
      << "in memory the devices stay";
  EXPECT_THAT(ReadBytes(world.catalogue), StartsWith("New\n1 "))
      << "what was read before is not written back";
}

TEST_F(Disturbed, ACatalogueThatVanishedStillServesTheDialog) {
  meanwhile = [&] { std::filesystem::remove(world.catalogue); };
  const Ran ran = Run("press 2012\nselect 3\nchoose 2124 \"Chuck 1\"\npress 2154\n");
  EXPECT_THAT(world.Stored(), Contains("1.2 Chuck 1"));
}

TEST_F(Disturbed, WhatAnotherUserSavedMeanwhileStaysInTheCatalogue) {
  meanwhile = [&] { WriteBytes(world.catalogue, "Theirs\n1 1 2 3\nChuck 1\n1 7 7 7\n"); };
  const Ran ran = Run("select 36\nset 2123 Mine\nset 2033 1\nset 2034 2\npress 2012\npress 2152\n");
  EXPECT_THAT(ReadBytes(world.catalogue),
              AllOf(HasSubstr("Theirs\n1 1 2 3\n"), HasSubstr("Chuck 1\n1 7 7 7\n"), HasSubstr("Mine\n1 ")));
}

TEST_F(Disturbed, ADeviceThatAnotherUserMadeMeanwhileIsAskedForBeforeItIsOverwritten) {
  meanwhile = [&] { WriteBytes(world.catalogue, "New\n1 9 9 9\n"); };
  const std::string save = "select 36\nset 2123 New\nset 2033 1\nset 2034 2\npress 2012\npress 2152\n";
  EXPECT_THAT(Run(save).events, Contains("box 4 Name already exist. Overwrite? -> 7"));
  EXPECT_EQ(ReadBytes(world.catalogue), "New\n1 9 9 9\n");
}

TEST_F(Disturbed, TwoHundredDialogsLeaveNothingOpen) {
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
  };
  const std::string job =
      "select 3\nchoose 2124 0\npress 2154\nselect 4\nchoose 2124 0\npress 2154\nselect 19\nset 2022 80\n"
      "set 2023 100\npress 2016\nselect 36\nset 2123 \"Chuck 1\"\nset 2033 1\nset 2034 2\nanswer yes\npress "
      "2152\n";
  Run(job + "press 1\n");
  const auto before = open();
  const auto stored = world.Stored();
  for (int i = 0; i < 200; ++i) {
    const Ran ran = Run(job + (i % 2 == 0 ? "press 1\n" : "close\n"));
    ASSERT_THAT(ran.events.back(), StartsWith("closed "));
  }
  EXPECT_EQ(open(), before);
  EXPECT_EQ(world.Stored(), stored);
  for (const auto& [number, vdm] : host.vdms) EXPECT_EQ(vdm.handle, 0U) << number;
  EXPECT_TRUE(host.kurveReadings.empty());
}

/// The spurs of a machine, and whether it has a sub spindle and a tailstock.
class OkOnMachine : public DialogTest, public testing::WithParamInterface<std::tuple<int, bool, bool>> {};

TEST_P(OkOnMachine, MakesTheDevicesOfEverySpur) {
  const auto [spurs, sub, tail] = GetParam();
  world.SetMachine({.sub = sub, .tail = tail, .spurs = spurs});
  host.integers["i_return"] = 17;
  for (auto& [number, vdm] : host.vdms) {
    vdm.records[1][3] = "1 80 90 20";
    if (sub) vdm.records[2][3] = "2 11 21 31 4 5 1";
    if (tail) vdm.records[sub ? 10 : 2][3] = "13 40 20 10 5 60 10 60";
  }
  ASSERT_EQ(host.vdms.size(), static_cast<std::size_t>(spurs));
  host.TakeCalls();
  EXPECT_THAT(Run("press 1\n").events, ElementsAre("closed ok"));
  const auto calls = host.TakeCalls("OrvoCommand");
  EXPECT_EQ(std::ranges::count(calls, "OrvoCommand('sld spu kur k30000 0 0 0 1 0 0 360 i_return')"),
            spurs * (1 + (sub ? 1 : 0) + (tail ? 1 : 0)));
  for (const auto& [number, vdm] : host.vdms) {
    EXPECT_EQ(vdm.handle, 0U) << number;
    EXPECT_EQ(vdm.records[5].back(), " 0 0 90.000000\n") << number;
    const std::string second = sub ? " 0 0 21.000000\n" : tail ? " 0 0 40.000000\n" : "VRML Sub Clampdevice";
    EXPECT_EQ(vdm.records[7].back(), second) << number;
    EXPECT_EQ(vdm.records[9].back(), sub && tail ? " 0 0 40.000000\n" : "VRML Center") << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, OkOnMachine,
                         testing::Combine(testing::Values(1, 2, 50), testing::Bool(), testing::Bool()),
                         [](const auto& machine) {
                           return std::to_string(std::get<0>(machine.param)) + "spurs" +
                                  (std::get<1>(machine.param) ? "_sub" : "") +
                                  (std::get<2>(machine.param) ? "_tail" : "");
                         });

}  // namespace
}  // namespace vanzet::test
