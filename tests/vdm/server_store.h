#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>

#include "support/engine_calls.h"
#include "support/temporary_folder.h"
#include "support/test_server.h"
#include "support/vdm_values.h"
#include "vdm/server_proxy.h"
#include "vdm/store.h"

namespace vanzet::vdm {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::ServerProxy;
using test::Told;
using test::VdmOf;
using test::WriteTo;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Cut = ServerProxy::Cut;
using std::chrono::milliseconds;

/// Tests of one database each, which no other test sees.
class ServerStore : public testing::Test {
 protected:
  void SetUp() override {
    if (test::ServerText().empty()) GTEST_SKIP() << test::kNoServer;
    static int databases = 0;
    const std::string name = "test_" + std::to_string(getpid()) + "_" + std::to_string(++databases);
    Sql(test::ServerText(), "CREATE DATABASE " + name);
    text = test::ServerText() + " dbname=" + name;
  }
  static PostgresAnswers Sql(const std::string& where, const std::string& sql) {
    const auto connection = Get(PostgresConnection::Open(where));
    return Get(connection->Run({{sql}}));
  }
  std::int64_t Count(const std::string& sql) { return Sql(text, sql).front().Integer(0, 0); }
  PostgresEngine Engine(const std::string& project = "lathe") { return {text, project}; }
  VdmStore Store() {
    auto engine = std::make_unique<PostgresEngine>(text, "lathe");
    auto locks = engine->Locks();
    return {std::move(engine), std::move(locks), folder.path()};
  }
  void Write(std::uint32_t number, const Records& records) {
    PostgresEngine engine = Engine();
    ASSERT_EQ(Told(WriteTo(engine, number, VdmOf(records))), "");
  }
  static Records ReadBy(PostgresEngine& engine, std::uint32_t number) {
    return RecordsOf(Get(engine.Read({Number{number}})).at(Number{number}));
  }

  /// Expects the same fault of all operations.
  void ExpectRefusal(const std::string& what) {
    PostgresEngine engine = Engine();
    const auto isRefusal = AllOf(HasSubstr("postgresql://"), HasSubstr(what));
    EXPECT_THAT(Told(engine.Numbers()), isRefusal);
    EXPECT_THAT(Told(engine.Open(Number{1})), isRefusal);
    EXPECT_THAT(Told(engine.Read({Number{1}})), isRefusal);
    EXPECT_THAT(Told(engine.ListChanges({})), isRefusal);
    EXPECT_THAT(Told(WriteTo(engine, 1, Vdm())), isRefusal);
    EXPECT_THAT(Told(engine.Locks()->Acquire(Number{1})), isRefusal);
  }

  std::string text;
  test::TemporaryFolder folder;
};

}  // namespace vanzet::vdm
