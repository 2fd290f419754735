#include "catalogue/server_shop.h"

#include "support/test_server.h"
#include "vdm/server_proxy.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using Cut = ServerProxy::Cut;

DeviceRow Row(std::int64_t position, const std::string& name, int b) {
  return {position, name, name + "\n1 80 " + std::to_string(b) + " 20\n", ""};
}

/// A catalogue on a database of its own, behind a proxy that breaks connections.
class ServerShopTest : public testing::Test {
 protected:
  void SetUp() override {
    if (ServerText().empty()) GTEST_SKIP() << kNoServer;
    static int databases = 0;
    const std::string name = "shop_" + std::to_string(getpid()) + "_" + std::to_string(++databases);
    const auto connection = vdm::PostgresConnection::Open(ServerText());
    ASSERT_TRUE(connection);
    ASSERT_TRUE((*connection)->Run({{"CREATE DATABASE " + name}}));
    text = ServerText() + " dbname=" + name;
    proxy.emplace(text);
  }

  ServerShop ShopAt(const std::string& where) const { return {where, "shop.cld", 200}; }

  /// Adds a device, behind the proxy.
  Result<void> Add(const std::string& name) {
    return ShopAt(proxy->Text()).ChangeRows("add", [&](const std::optional<DeviceRows>& rows) {
      DeviceRows now = rows.value_or(DeviceRows());
      now.push_back(Row(static_cast<std::int64_t>(now.size()) + 1, name, 90));
      return Result<std::optional<DeviceRows>>(std::move(now));
    });
  }

  ServerState StateNow() const {
    const auto state = ShopAt(text).Read();
    return state && *state ? **state : ServerState();
  }

  std::string text;
  std::optional<ServerProxy> proxy;
};

TEST_F(ServerShopTest, ChangesOnceWhereverTheConnectionBreaks) {
  ASSERT_TRUE(Add("first"));
  for (const Cut cut : {Cut::kNow, Cut::kBeforeCommit, Cut::kAfterCommit}) {
    const ServerState before = StateNow();
    proxy->CutOnce(cut);
    const auto added = Add("cut " + std::to_string(static_cast<int>(cut)));
    ASSERT_TRUE(added) << added.fault().Message();
    const ServerState now = StateNow();
    EXPECT_EQ(now.generation, before.generation + 1);
    EXPECT_EQ(now.rows.size(), before.rows.size() + 1);
  }
}

TEST_F(ServerShopTest, HasNothingBeforeTheFirstChange) {
  const auto read = ShopAt(text).Read();
  ASSERT_TRUE(read) << read.fault().Message();
  EXPECT_FALSE(*read);
  EXPECT_TRUE(ShopAt(text).History("first")->empty());
}

TEST_F(ServerShopTest, KeepsTheStateAfterEachGeneration) {
  ASSERT_TRUE(Add("first"));
  const ServerState first = StateNow();
  ASSERT_TRUE(Add("second"));
  const auto past = ShopAt(text).ReadAt(first);
  ASSERT_TRUE(past && *past);
  EXPECT_THAT(**past, ElementsAre(Row(1, "first", 90)));
  const auto ofAnother = ShopAt(text).ReadAt({first.generation, "the token of another server"});
  ASSERT_TRUE(ofAnother);
  EXPECT_FALSE(*ofAnother);
}

TEST_F(ServerShopTest, WritesNothingThatIsRefused) {
  ASSERT_TRUE(Add("first"));
  const auto refused = ShopAt(text).ChangeRows(
      "test", [](const auto&) -> Result<std::optional<DeviceRows>> { return Fault{"no"}; });
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.fault().text, "no");
  ASSERT_TRUE(ShopAt(text).ChangeRows("test", [](const auto& rows) { return Result(rows); }));
  EXPECT_EQ(StateNow().generation, 1);
}

}  // namespace
}  // namespace vanzet::test
