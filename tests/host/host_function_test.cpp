#include "host/host_function.h"

#include <gmock/gmock.h>

#include "host/host_functions.h"
#include "platform/symbols.h"
#include "support/fake_host.h"

namespace vanzet::host {
namespace {

using test::FakeHost;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ResolveHostFunction, LooksANameUpOnceAndKeepsIt) {
  FakeHost host;
  hostFunctions.OrvoCommand("win 0");
  hostFunctions.OrvoCommand("win 1");
  EXPECT_THAT(host.lookUps, ElementsAre("OrvoCommand"));
  EXPECT_THAT(host.calls, ElementsAre("OrvoCommand('win 0')", "OrvoCommand('win 1')"));
}

TEST(ResolveHostFunction, LooksBothNamesUpAtEveryCallOfAMissingOne) {
  FakeHost host;
  host.missing = {"OrvoCommand"};
  hostFunctions.OrvoCommand("win 0");
  hostFunctions.OrvoCommand("win 0");
  EXPECT_THAT(host.lookUps, ElementsAre("OrvoCommand", "OrvoMissingAPI", "OrvoCommand", "OrvoMissingAPI"));
  EXPECT_EQ(host.missingCalls, 2);
}

TEST(ResolveHostFunction, FindsANameThatTheHostGetsLater) {
  FakeHost host;
  host.missing = {"OrvoCommand"};
  hostFunctions.OrvoCommand("win 0");
  host.missing.clear();
  hostFunctions.OrvoCommand("win 0");
  hostFunctions.OrvoCommand("win 0");
  EXPECT_THAT(host.lookUps, ElementsAre("OrvoCommand", "OrvoMissingAPI", "OrvoCommand"));
}

TEST(ResolveHostFunction, SharesOneSlotAmongAllCallers) {
  FakeHost host;
  void* slot = nullptr;
  void* const first = ResolveHostFunction("OrvoCommand", slot);
  EXPECT_EQ(slot, first);
  EXPECT_EQ(ResolveHostFunction("OrvoCommand", slot), first);
  EXPECT_EQ(host.lookUps.size(), 1U);
}

TEST(ResolveHostFunction, LeavesTheSlotOfAMissingNameEmpty) {
  FakeHost host;
  void* slot = nullptr;
  EXPECT_EQ(ResolveHostFunction("OrvoNoSuch", slot), platform::FindSymbol(nullptr, "OrvoMissingAPI"));
  EXPECT_EQ(slot, nullptr);
}

TEST(HostFunction, TakesTheResultOfTheFallbackAsItStands) {
  FakeHost host;
  host.missing = {"OrvoReadGlobalI", "OrvoReadGlobalW", "OrvoEnvironment", "OrvoGetWnd"};
  Flag ok = 1;
  EXPECT_EQ(hostFunctions.OrvoReadGlobalI("i_return", &ok), 0);
  EXPECT_EQ(hostFunctions.OrvoReadGlobalW("w_return", &ok), 0.0);
  EXPECT_EQ(hostFunctions.OrvoGetWnd(2), nullptr);
  EXPECT_EQ(host.missingCalls, 3);
}

TEST(HostFunction, TakesANullTextForTheEmptyOne) {
  FakeHost host;
  host.missing = {"OrvoEnvironment"};
  EXPECT_EQ(hostFunctions.OrvoEnvironment("TMP"), "");
}

TEST(HostFunction, SearchesTheRunningProgramByDefault) {
  EXPECT_EQ(HostModuleHandle, nullptr);
  EXPECT_EQ(symbolFinder, &platform::FindSymbol);
}

}  // namespace
}  // namespace vanzet::host
