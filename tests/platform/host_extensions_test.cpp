#include "platform/host_extensions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace vanzet::platform {
namespace {

std::string reported;
std::int32_t answerOfHost = 1;

void TakeFault(const char* text, const char* file, std::int32_t line, std::int32_t column, const char* source,
               std::int32_t kind) {
  reported = Fault{text, file, line, column, static_cast<FaultKind>(kind), source}.Message() + " | " + source;
}

std::int32_t AnswerEvent() {
  return answerOfHost;
}

void* FindInHost(void* /*module*/, const char* name) {
  if (name == std::string_view("VanzetReportFault")) return reinterpret_cast<void*>(&TakeFault);
  if (name == std::string_view("VanzetEventHandled")) return reinterpret_cast<void*>(&AnswerEvent);
  if (name == std::string_view("VanzetHasFailed")) return reinterpret_cast<void*>(&AnswerEvent);
  return nullptr;
}

/// Puts a host in place while it exists.
struct Host {
  Host() { extensionFinder = FindInHost; }
  ~Host() { extensionFinder = former; }
  const ExtensionFinder former = extensionFinder;
};

TEST(HostExtensions, PassAFaultWithAllItsParts) {
  const Host host;
  ReportFault({.text = "unknown", .file = "job.txt", .line = 3, .column = 2, .source = "press 9"});
  EXPECT_EQ(reported, "job.txt:3:2: unknown | press 9");
}

TEST(HostExtensions, PassTheAnswerOfTheHost) {
  const Host host;
  answerOfHost = 0;
  EXPECT_FALSE(KeepWorkOfEvent());
  EXPECT_FALSE(HasHostFailed());
  answerOfHost = 1;
  EXPECT_TRUE(KeepWorkOfEvent());
  EXPECT_TRUE(HasHostFailed());
}

TEST(HostExtensions, ReportNothingToAHostWithoutThem) {
  reported = "nothing";
  ReportFault({"nobody hears this"});
  EXPECT_EQ(reported, "nothing");
  EXPECT_TRUE(KeepWorkOfEvent());
  EXPECT_FALSE(HasHostFailed());
}

}  // namespace
}  // namespace vanzet::platform
