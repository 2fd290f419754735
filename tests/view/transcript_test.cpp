#include "view/script/transcript.h"

#include <gtest/gtest.h>

#include "support/reported_faults.h"
#include "support/temporary_folder.h"
#include "view/script/json.h"

namespace vanzet::view {
namespace {

using test::ReadBytes;
using test::TemporaryFolder;

TEST(JsonString, EscapesWhatJsonWantsEscaped) {
  EXPECT_EQ(JsonString("a\"b\\c\n\r\t"), R"("a\"b\\c\n\r\t")");
  EXPECT_EQ(JsonString(std::string("\x01\x1f\0", 3)), R"("\u0001\u001f\u0000")");
  EXPECT_EQ(JsonString("\x7F\xC2\x9B"), R"("\u007f\u009b")");
  EXPECT_EQ(JsonString("W\xC3\xA4hlen\xC2\xA0"), "\"W\xC3\xA4hlen\xC2\xA0\"");
}

TEST(JsonString, IsUtf8WhateverTheText) {
  EXPECT_EQ(JsonString("W\xE4hlen\xC3"), "\"W\xEF\xBF\xBDhlen\xEF\xBF\xBD\"");
}

TEST(Transcript, WritesOneObjectALine) {
  const TemporaryFolder folder;
  const std::string file = (folder / "run.jsonl").string();
  Transcript transcript(file);
  transcript.Box({"a \"caption\"", "text", 36, nullptr}, 7);
  EXPECT_EQ(
      ReadBytes(file),
      "{\"event\":\"box\",\"caption\":\"a \\\"caption\\\"\",\"text\":\"text\",\"type\":36,\"answer\":7}\n")
      << "a line is on disk as soon as it is written";
  transcript.Error(3, "no such node");
  EXPECT_TRUE(ReadBytes(file).ends_with("\n{\"event\":\"error\",\"line\":3,\"text\":\"no such node\"}\n"));
}

TEST(Transcript, GoesToStandardOutputWithoutAFile) {
  testing::internal::CaptureStdout();
  Transcript("").Error(1, "x");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "{\"event\":\"error\",\"line\":1,\"text\":\"x\"}\n");
}

TEST(Transcript, GoesToStandardOutputWhenTheFileCannotBeWritten) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const test::ReportedFaults host;
  Transcript("/no/such/folder/run.jsonl").Error(1, "x");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "{\"event\":\"error\",\"line\":1,\"text\":\"x\"}\n");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("/no/such/folder/run.jsonl"), std::string::npos);
  EXPECT_EQ(host.Messages(),
            std::vector<std::string>{
                "/no/such/folder/run.jsonl: the transcript cannot be written: No such file or directory"});
}

}  // namespace
}  // namespace vanzet::view
