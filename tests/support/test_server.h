#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "vdm/postgres/engine.h"

/// The PostgreSQL server of the tests, which `tools/with-postgres` starts for them.
namespace vanzet::test {

/// The connection text; empty without a server.
inline std::string ServerText() {
  const char* const text = std::getenv("VANZET_TEST_POSTGRES");
  return text == nullptr ? "" : text;
}

/// The reason to skip a test without a server.
inline constexpr const char* kNoServer = "needs a PostgreSQL server: run by tools/with-postgres";

/// A name that no other test uses, and no other process that runs it.
inline std::string NewProject() {
  static int projects = 0;
  const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
  return std::string(test->test_suite_name()) + "." + test->name() + " " + std::to_string(getpid()) + " " +
         std::to_string(++projects);
}

}  // namespace vanzet::test
