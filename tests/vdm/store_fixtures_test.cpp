#include <gmock/gmock.h>

#include "support/engine_calls.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/embedded/engine.h"
#include "vdm/embedded/schema.h"
#include "vdm/embedded/store_care.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using testing::IsEmpty;

/// Stores that earlier versions wrote: fixtures/store-schema-N.db, each with the definitions of both spurs
/// of the sample project. A new schema gets a file here, and the former ones stay.
class StoreFixtures : public testing::TestWithParam<std::int64_t> {
 protected:
  std::filesystem::path CopyOf(std::int64_t schema) {
    const std::string name = "store-schema-" + std::to_string(schema) + ".db";
    const std::filesystem::path copy = folder / name;
    std::filesystem::copy_file(std::string(VANZET_SOURCE_DIR "/tests/vdm/fixtures/") + name, copy,
                               std::filesystem::copy_options::overwrite_existing);
    return copy;
  }

  static std::map<Number, Records> ContentOf(SqliteEngine& engine) {
    std::map<Number, Records> content;
    for (const auto& [number, vdm] : Get(engine.Read(Get(engine.Numbers()))))
      content[number] = RecordsOf(vdm);
    return content;
  }

  test::TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(Schemas, StoreFixtures, testing::Range(std::int64_t{1}, kStoreSchema + 1),
                         [](const auto& schema) { return "Schema" + std::to_string(schema.param); });

TEST_P(StoreFixtures, HoldTheSameInEverySchema) {
  SqliteEngine engine(CopyOf(GetParam())), current(CopyOf(kStoreSchema));
  const auto content = ContentOf(engine);
  ASSERT_EQ(content.size(), 2u);
  EXPECT_EQ(content.at(Number{1000})[0], (std::vector<std::string>{"1 1 1 2", "Billet definition", "100"}));
  EXPECT_EQ(content, ContentOf(current));
}

TEST_P(StoreFixtures, AreSound) {
  EXPECT_THAT(Get(CheckStore(CopyOf(GetParam()))), IsEmpty());
}

TEST_P(StoreFixtures, KeepTheirContentWhenACommitBringsThemToTheCurrentSchema) {
  const auto file = CopyOf(GetParam());
  SqliteEngine engine(file);
  auto content = ContentOf(engine);
  ASSERT_EQ(Told(test::WriteTo(engine, 5, test::VdmOf({{"new"}}))), "");
  content[Number{5}] = {{"new"}};
  EXPECT_EQ(ContentOf(engine), content);
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
  const auto connection = Get(SqliteConnection::Open(file, SqliteConnection::IfMissing::kFail, {}));
  EXPECT_EQ(Get(connection->Integer("PRAGMA user_version")), kStoreSchema);
}

}  // namespace
}  // namespace vanzet::vdm
