#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <stdexcept>

#include "door/exports.h"
#include "support/fake_host.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// The module in the process of a host: it finds that host's functions by name in the running program.
class ModuleInAHost : public testing::Test {
 protected:
  ModuleInAHost() {
    host.integers = {{"i_billet_vdm", 1000}, {"i_billet_vdm_spispur", 2000}};
    setenv("VANZET_SCRIPT", (folder / "script.txt").c_str(), 1);
    setenv("VANZET_TRANSCRIPT", (folder / "run.jsonl").c_str(), 1);
    WriteBytes(folder / "script.txt", "");
    module = dlopen(VANZET_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(module, nullptr) << dlerror();
  }
  ~ModuleInAHost() override {
    if (module != nullptr) dlclose(module);
    unsetenv("VANZET_SCRIPT");
    unsetenv("VANZET_TRANSCRIPT");
  }

  void Call(const char* name) {
    auto* const function = reinterpret_cast<void (*)()>(dlsym(module, name));
    ASSERT_NE(function, nullptr) << name;
    function();
  }

  void MachineIni(const std::string& text) {
    WriteBytes(folder / "machine.ini", text);
    host.environment["ppdefini"] = (folder / "machine.ini").string();
  }

  std::string Transcript() { return ReadBytes(folder / "run.jsonl"); }

  std::size_t OperationsOf(std::uint32_t vdm) {
    return host.vdms.contains(vdm) ? host.vdms[vdm].records.size() : 0;
  }

  /// A structure of the host whose second member is its main window.
  void* window = &window;
  void* variables[2] = {nullptr, &window};

  FakeHost host;
  const TemporaryFolder folder;
  void* module = nullptr;
};

TEST_F(ModuleInAHost, UpgradesTheDefinitionOfEverySpur) {
  MachineIni("[COMMON]\nNR_SPINDEL_SPUR=2\n");
  Call("ReOrgVdm");
  EXPECT_EQ(host.vdms.size(), 2U);
  EXPECT_EQ(OperationsOf(1000), 18U);
  EXPECT_EQ(OperationsOf(2000), 18U);
  EXPECT_EQ(host.vdms[1000].handle, 0U) << "closed";
  EXPECT_EQ(Transcript(), "");
}

TEST_F(ModuleInAHost, UpgradesFiftySpursWhoseNumbersRunOn) {
  MachineIni("[COMMON]\nNR_SPINDEL_SPUR=50\n");
  Call("ReOrgVdm");
  EXPECT_EQ(host.vdms.size(), 50U);
  for (std::uint32_t spur = 1; spur < 50; ++spur) EXPECT_EQ(OperationsOf(1999 + spur), 18U) << spur;
}

TEST_F(ModuleInAHost, UpgradesOneSpurForACountThatCannotBe) {
  for (const char* count : {"0", "51", "-1", "many"}) {
    host.vdms.clear();
    MachineIni(std::string("[COMMON]\nNR_SPINDEL_SPUR=") + count + "\n");
    Call("ReOrgVdm");
    EXPECT_EQ(host.vdms.size(), 1U) << count;
    EXPECT_EQ(OperationsOf(1000), 18U) << count;
  }
}

TEST_F(ModuleInAHost, ShowsOneBoxForAMissingIniAndUpgradesTheFirstSpur) {
  host.environment["ppdefini"] = "/no/such/machine.ini";
  Call("ReOrgVdm");
  EXPECT_EQ(OperationsOf(1000), 18U);
  EXPECT_EQ(host.vdms.size(), 1U);
  EXPECT_EQ(Transcript(),
            "{\"event\":\"box\",\"caption\":\"File can not open for read\","
            "\"text\":\"/no/such/machine.ini\",\"type\":48,\"answer\":1}\n");
}

TEST_F(ModuleInAHost, ReadsOnlyTheCountOfSpursOfTheMachine) {
  MachineIni("[COMMON]\nNR_SPINDEL_SPUR=1\n");
  Call("ReOrgVdm");
  EXPECT_EQ(host.TakeCalls("OrvoEnvironment"), std::vector<std::string>{"OrvoEnvironment('ppdefini')"});
}

TEST_F(ModuleInAHost, ShowsTheStoresFaultsAndReturns) {
  MachineIni("");
  host.vdms[1000].openElsewhere = true;
  Call("ReOrgVdm");
  EXPECT_THAT(Transcript(), HasSubstr("\"caption\":\"OrvoApi::MacroVdm\","
                                      "\"text\":\"1000: Open: already open by another process\",\"type\":0"));
  EXPECT_EQ(OperationsOf(1000), 0U);
}

TEST_F(ModuleInAHost, MayBeCalledAgainAndAgain) {
  MachineIni("");
  Call("ReOrgVdm");
  const auto before = host.vdms[1000].records;
  Call("ReOrgVdm");
  EXPECT_EQ(host.vdms[1000].records, before);
  EXPECT_EQ(Transcript(), "");
}

TEST_F(ModuleInAHost, ServesTheDialogFromTheScript) {
  MachineIni("");
  host.structure = variables;
  WriteBytes(folder / "script.txt", "select 8\n");
  Call("mstart");
  EXPECT_THAT(Transcript(), HasSubstr("node '8' is not in the tree"));
  EXPECT_THAT(Transcript(), testing::EndsWith("{\"event\":\"closed\",\"by\":\"close\"}\n"));
  WriteBytes(folder / "script.txt", "select 19\nset 2022 80\nset 2023 100\npress 2016\npress 1\n");
  Call("ReOrgVdm");
  Call("mstart");
  EXPECT_THAT(Transcript(), testing::EndsWith("{\"event\":\"closed\",\"by\":\"ok\"}\n"));
  EXPECT_THAT(host.ItemsOf(1000, 1)[8], testing::StartsWith("1 80.000000 100.000000 "));
  EXPECT_EQ(host.vdms[1000].handle, 0U);
}

TEST_F(ModuleInAHost, BuildsTheDialogAnewEachTime) {
  MachineIni("");
  WriteBytes(folder / "script.txt", "state\nselect 20\nset 2039 left\n");
  Call("mstart");
  WriteBytes(folder / "run.jsonl", "");
  Call("mstart");
  EXPECT_THAT(Transcript(), HasSubstr("\"page\":\"CPageEmpty\""));
  EXPECT_THAT(Transcript(), testing::Not(HasSubstr("left")));
}

TEST_F(ModuleInAHost, AsksForTheHostsStructureAtEachCallButTakesItsWindowOnce) {
  MachineIni("");
  host.structure = variables;
  Call("mstart");
  // Nothing can be read there: the window is not fetched again.
  host.structure = reinterpret_cast<void*>(8);
  Call("mstart");
  EXPECT_EQ(host.TakeCalls("OrvoGetStructPtr"), std::vector<std::string>(2, "OrvoGetStructPtr('DLLVARSXX')"));
}

TEST_F(ModuleInAHost, RunsTheDialogWithoutAWindowOfTheHost) {
  MachineIni("");
  host.structure = nullptr;
  Call("mstart");
  EXPECT_THAT(Transcript(), testing::EndsWith("{\"event\":\"closed\",\"by\":\"end-of-script\"}\n"));
}

TEST_F(ModuleInAHost, SaysThatThereIsNoDisplayWithoutAScript) {
  unsetenv("VANZET_SCRIPT");
  testing::internal::CaptureStderr();
  Call("mstart");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Equipment Definition: There is no display to show the dialog on.\n");
  EXPECT_TRUE(host.TakeCalls("OrvoMacroVdm").empty()) << "nothing was begun";
}

TEST_F(ModuleInAHost, GivesTheDialogWayWhenSomethingIsThrownInAHandler) {
  MachineIni("");
  Call("ReOrgVdm");
  WriteBytes(folder / "script.txt", "select 19\nset 2022 80\nset 2023 100\npress 2016\nselect 20\n");
  host.onCall = [](const std::string& name) {
    if (name == "OrvoMacroVdmSingleAdd$") throw std::runtime_error("the host is out of order");
  };
  Call("mstart");
  EXPECT_THAT(Transcript(), HasSubstr("\"text\":\"the host is out of order\""));
  EXPECT_EQ(host.vdms[1000].handle, 0U);
}

TEST_F(ModuleInAHost, LetsNothingThrownCrossItsDoor) {
  host.onCall = [](const std::string&) { throw std::runtime_error("the host is out of order"); };
  Call("ReOrgVdm");
  EXPECT_THAT(Transcript(),
              HasSubstr("\"caption\":\"vanzet\",\"text\":\"the host is out of order\",\"type\":48"));
  host.onCall = [](const std::string&) { throw L"of another kind"; };
  Call("ReOrgVdm");
  EXPECT_THAT(Transcript(), HasSubstr("\"text\":\"internal error (unknown exception)\""));
}

TEST_F(ModuleInAHost, ClosesTheDefinitionWhenSomethingIsThrownMeanwhile) {
  MachineIni("");
  host.onCall = [](const std::string& name) {
    if (name == "OrvoMacroVdmSingleAdd$") throw std::runtime_error("the host is out of order");
  };
  Call("ReOrgVdm");
  EXPECT_EQ(host.vdms[1000].handle, 0U);
}

TEST_F(ModuleInAHost, GivesACallWithinACallItsOwnViewAndThenTheFormerBack) {
  host.environment["ppdefini"] = "/no/such/machine.ini";
  for (const bool innerThrows : {false, true}) {
    WriteBytes(folder / "run.jsonl", "");
    // While the machine is looked for, the host calls the other export, which has no script.
    host.onCall = [&](const std::string& name) {
      if (name == "OrvoGetWnd" && innerThrows) throw std::runtime_error("the host is out of order");
      if (name != "OrvoEnvironment") return;
      unsetenv("VANZET_SCRIPT");
      Call("mstart");
      setenv("VANZET_SCRIPT", (folder / "script.txt").c_str(), 1);
    };
    testing::internal::CaptureStderr();
    Call("ReOrgVdm");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              innerThrows ? "vanzet: the host is out of order\n"
                          : "Equipment Definition: There is no display to show the dialog on.\n");
    EXPECT_THAT(Transcript(), HasSubstr("\"caption\":\"File can not open for read\""));
    EXPECT_THAT(Transcript(), testing::Not(HasSubstr("out of order")));
  }
}

TEST_F(ModuleInAHost, TellsFaultsOnStandardErrorWithoutAScript) {
  unsetenv("VANZET_SCRIPT");
  host.environment["ppdefini"] = "/no/such/machine.ini";
  testing::internal::CaptureStderr();
  Call("ReOrgVdm");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "File can not open for read: /no/such/machine.ini\n");
}

}  // namespace
}  // namespace vanzet::test
