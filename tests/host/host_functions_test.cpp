#include "host/host_functions.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

namespace vanzet::host {
namespace {

using test::FakeHost;

/// Calls every function once. A host without any of them tells which names were looked up.
void CallEveryFunction() {
  auto& f = hostFunctions;
  Flag ok = 0;
  std::int32_t integer = 0;
  double reals[18] = {};
  char buffer[8] = {};
  f.OrvoCommand("");
  f.OrvoMacroExec("", "");
  f.OrvoEnvironment("");
  f.OrvoReadGlobalI("", &ok);
  f.OrvoReadGlobalW("", &ok);
  f.OrvoReadGlobalStr("", buffer, &ok);
  f.OrvoWriteGlobalStr("", "", &ok);
  f.OrvoWriteGlobalI("", 0, &ok);
  f.OrvoStrMessage(5, 0, "");
  f.OrvoGetWnd(2);
  f.OrvoGetStructPtr("");
  f.OrvoClearSelection();
  f.OrvoSelectOneObject(0, 2048, "", &integer);
  f.OrvoGetObjectParasolidEntityNumber(1);
  f.OrvoPsGetBodyNameFromNumber(1);
  f.OrvoPsGetBodyNumberFromName("");
  f.OrvoIsBodyAnSTLObject(1);
  f.OrvoPsGetExtents(1, reals);
  f.OrvoPsDeleteBody(1);
  f.OrvoGetCurrentLayer();
  f.OrvoGetLayerName(1);
  f.OrvoFindNoOfSpansFromKurveNo(30001);
  f.OrvoGetSpn(reals, reals, reals, reals, reals, &integer, 1);
  f.OrvoVdmExist(30001, 1, 33, 2);
  f.OrvoVdmMake(1, 2, 0);
  f.OrvoVdmOpen(1, 1, 2);
  f.OrvoVdmClose(1);
  f.OrvoVdmEoi(1);
  f.OrvoVdmRead(1, reals, 8);
  f.OrvoVdmReadTmx(1, reals);
  f.OrvoVdmWriteTmx(1, reals);
  f.OrvoMacroVdmExists(1);
  f.OrvoMacroVdmCreate(1, 0);
  f.OrvoMacroVdmOpen(1, 1);
  f.OrvoMacroVdmCheckOpen(1);
  f.OrvoMacroVdmClose(1);
  f.OrvoMacroVdmDelete(1);
  f.OrvoMacroVdmSize(1);
  f.OrvoMacroVdmSeek(1, 0, 0);
  f.OrvoMacroVdmInsertStr(1, "", 1);
  f.OrvoMacroVdmRemove(1, 1);
  f.OrvoMacroVdmSingleSeek(1, 1);
  f.OrvoMacroVdmSingleGetStr(1, buffer, 1);
  f.OrvoMacroVdmSingleAddStr(1, "", 1);
  f.OrvoMacroVdmSingleReplaceStr(1, "", 1);
  f.OrvoMacroVdmSingleDelete(1, 1);
}

const std::vector<std::string> kNames = {
    "OrvoCommand",
    "OrvoMacroExec",
    "OrvoEnvironment",
    "OrvoReadGlobalI",
    "OrvoReadGlobalW",
    "OrvoReadGlobal$",
    "OrvoWriteGlobal$",
    "OrvoWriteGlobalI",
    "OrvoStrMessage",
    "OrvoGetWnd",
    "OrvoGetStructPtr",
    "OrvoClearSelection",
    "OrvoSelectOneObject",
    "OrvoGetObjectParasolidEntityNumber",
    "OrvoPsGetBodyNameFromNumber",
    "OrvoPsGetBodyNumberFromName",
    "OrvoIsBodyAnSTLObject",
    "OrvoPsGetExtents",
    "OrvoPsDeleteBody",
    "OrvoGetCurrentLayer",
    "OrvoGetLayerName",
    "OrvoFindNoOfSpansFromKurveNo",
    "OrvoGetSpn",
    "OrvoVdmExist",
    "OrvoVdmMake",
    "OrvoVdmOpen",
    "OrvoVdmClose",
    "OrvoVdmEoi",
    "OrvoVdmRead",
    "OrvoVdmReadTmx",
    "OrvoVdmWriteTmx",
    "OrvoMacroVdmExists",
    "OrvoMacroVdmCreate",
    "OrvoMacroVdmOpen",
    "OrvoMacroVdmCheckOpen",
    "OrvoMacroVdmClose",
    "OrvoMacroVdmDelete",
    "OrvoMacroVdmSize",
    "OrvoMacroVdmSeek",
    "OrvoMacroVdmInsert$",
    "OrvoMacroVdmRemove",
    "OrvoMacroVdmSingleSeek",
    "OrvoMacroVdmSingleGet$",
    "OrvoMacroVdmSingleAdd$",
    "OrvoMacroVdmSingleReplace$",
    "OrvoMacroVdmSingleDelete",
};

TEST(HostFunctionCache, HasEveryFunctionUnderItsExactName) {
  FakeHost host;
  host.missing = {kNames.begin(), kNames.end()};
  CallEveryFunction();
  std::vector<std::string> expected;
  for (const std::string& name : kNames) {
    expected.push_back(name);
    expected.emplace_back("OrvoMissingAPI");
  }
  EXPECT_EQ(host.lookUps, expected);
  EXPECT_EQ(host.missingCalls, static_cast<std::int32_t>(kNames.size()));
}

TEST(HostFunctionCache, HasASlotForEachFunctionAndNoOther) {
  EXPECT_EQ(sizeof(HostFunctionCache), kNames.size() * sizeof(HostFunction<void()>));
}

}  // namespace
}  // namespace vanzet::host
