#include "api/trace.h"

#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

class TraceTest : public HostTest {
 protected:
  TraceTest() { Restart(std::move(*api::Trace::To(folder / "calls.jsonl"))); }

  std::string Written() const { return ReadBytes(folder / "calls.jsonl"); }
};

TEST_F(TraceTest, WritesACallALineWithNumbersTextsAndOutputs) {
  std::int32_t ok = 0;
  char buffer[5000];
  OrvoReadGlobalI("i_billet_vdm", &ok);
  OrvoReadGlobalW("w_return", &ok);
  OrvoReadGlobalText("$_none", buffer, &ok);
  OrvoWriteGlobalI("i_x", -5, &ok);
  OrvoEnvironment("NoSuchKey");
  const std::uint32_t handle = OrvoMacroVdmCreate(7, 0);
  OrvoMacroVdmInsertText(handle, "a \"text\"", 1);
  OrvoMacroVdmSingleGetText(handle, buffer, 1);
  OrvoGetWnd(2);
  OrvoMissingAPI();
  EXPECT_EQ(
      Written(),
      "{\"call\":\"OrvoReadGlobalI\",\"args\":[\"i_billet_vdm\"],\"result\":1000,\"out\":[1]}\n"
      "{\"call\":\"OrvoReadGlobalW\",\"args\":[\"w_return\"],\"result\":0.0,\"out\":[1]}\n"
      "{\"call\":\"OrvoReadGlobal$\",\"args\":[\"$_none\"],\"result\":null,\"out\":[\"\",0]}\n"
      "{\"call\":\"OrvoWriteGlobalI\",\"args\":[\"i_x\",-5],\"result\":null,\"out\":[1]}\n"
      "{\"call\":\"OrvoEnvironment\",\"args\":[\"NoSuchKey\"],\"result\":\"\"}\n"
      "{\"call\":\"OrvoMacroVdmCreate\",\"args\":[7,0],\"result\":1}\n"
      "{\"call\":\"OrvoMacroVdmInsert$\",\"args\":[1,\"a \\\"text\\\"\",1],\"result\":null}\n"
      "{\"call\":\"OrvoMacroVdmSingleGet$\",\"args\":[1,1],\"result\":null,\"out\":[\"a \\\"text\\\"\"]}\n"
      "{\"call\":\"OrvoGetWnd\",\"args\":[2],\"result\":null}\n"
      "{\"call\":\"OrvoMissingAPI\",\"args\":[],\"result\":0}\n");
}

TEST_F(TraceTest, IsOnDiskBeforeTheNextCall) {
  OrvoCommand("rubbish");
  EXPECT_EQ(Written(), "{\"call\":\"OrvoCommand\",\"args\":[\"rubbish\"],\"result\":null}\n");
}

TEST_F(TraceTest, TakesBytesThatAreNoUtf8) {
  OrvoCommand("\xFF\xFE");
  EXPECT_TRUE(api::Json::accept(Written()));
}

TEST_F(TraceTest, ThatCannotBeWrittenIsReportedOnce) {
  Restart(std::move(*api::Trace::To("/dev/full")));
  for (int i = 0; i < 3; ++i) OrvoGetWnd(2);
  EXPECT_THAT(panel.lines, testing::ElementsAre("/dev/full: the trace cannot be continued"));
}

TEST(Trace, ToAPipeIsAFaultAndWaitsForNobody) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(api::Trace::To(folder / "pipe"));
}

TEST(Trace, ToAPlaceThatCannotBeWrittenIsAFault) {
  const auto trace = api::Trace::To("/no/such/folder/calls.jsonl");
  ASSERT_FALSE(trace);
  EXPECT_EQ(trace.fault().file, "/no/such/folder/calls.jsonl");
}

}  // namespace
}  // namespace vanzet::test
