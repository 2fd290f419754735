#include <gmock/gmock.h>
#include <sys/mount.h>
#include <unistd.h>

#include <optional>
#include <random>

#include "project/project_store.h"
#include "shop/server.h"
#include "support/vdm_values.h"

namespace vanzet::test {
namespace {

std::size_t Count(const std::string& text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t i = text.find(part); i != text.npos; i = text.find(part, i + part.size())) ++count;
  return count;
}

/// An open project whose store is on a server that counts connections.
class ConnectedProject : public testing::Test {
 protected:
  ConnectedProject() {
    WriteBytes(folder_ / "bench.ini", "[store]\nengine=" + server_->Text() + "\n");
    const std::size_t before = Connections();
    project_.emplace(project::Project::Open(folder_.path(), folder_.path()));
    EXPECT_TRUE(*project_) << project_->fault().Message();
    before_ = before;
  }

  const project::Project& Project() const { return **project_; }
  std::size_t Made() const { return Connections() - before_; }
  Server& server() const { return *server_; }

  /// The text that a store of a moment reads, or the reason that it cannot.
  std::string First() const {
    const auto content = project::StoreOf(Project()).Snapshot(1);
    return content ? RecordsOf(*content).at(0).at(0) : content.fault().Message();
  }
  void Write(const std::string& text) const {
    vdm::VdmStore store = project::StoreOf(Project());
    EXPECT_TRUE(store.Replace(1, VdmOf({{text}})));
    EXPECT_TRUE(store.Commit("test"));
  }

 private:
  std::size_t Connections() const { return Count(server_->Log(), "application_name=vanzet "); }

  const std::unique_ptr<Server> server_ = Server::Make({"log_connections=on"});
  const TemporaryFolder folder_;
  std::optional<Result<project::Project>> project_;
  std::size_t before_ = 0;
};

TEST_F(ConnectedProject, UsesOneConnectionForAllItsStores) {
  Write("a");
  EXPECT_EQ(First(), "a");
  Write("b");
  EXPECT_EQ(First(), "b");
  EXPECT_EQ(Made(), 1U);
}

TEST_F(ConnectedProject, HasAConnectionForEachOfTwoStoresAtATime) {
  {
    vdm::VdmStore store = project::StoreOf(Project()), second = project::StoreOf(Project());
    second.WaitAtMost(std::chrono::milliseconds(0));
    EXPECT_TRUE(store.Hold());
    EXPECT_EQ(second.Hold().fault().kind, FaultKind::kBusy);
  }
  EXPECT_EQ(Made(), 2U);
  Write("a");
  EXPECT_EQ(First(), "a");
  EXPECT_EQ(Made(), 2U);
}

TEST_F(ConnectedProject, ConnectsAgainWhenTheServerHasEndedTheIdleConnection) {
  Write("a");
  server().Sql(
      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name LIKE 'vanzet%'");
  EXPECT_EQ(First(), "a");
  EXPECT_EQ(Made(), 2U);
}

TEST_F(ConnectedProject, ReadsFromAServerThatWasStartedAgain) {
  Write("a");
  server().Stop();
  EXPECT_THAT(First(), testing::HasSubstr("cannot be reached"));
  server().Start();
  EXPECT_EQ(First(), "a");
}

/// A disk of a few megabytes for the tables of a server.
class SmallDisk {
 public:
  SmallDisk() { isThere_ = mount("vanzet-test", Folder(), "tmpfs", kFlags, "size=2m,mode=777") == 0; }
  ~SmallDisk() {
    if (isThere_) umount2(Folder(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  explicit operator bool() const { return isThere_; }
  const char* Folder() const { return folder_.path().c_str(); }
  void Grow() const { ASSERT_EQ(mount("", Folder(), "tmpfs", kFlags | MS_REMOUNT, "size=64m"), 0); }

 private:
  static constexpr unsigned long kFlags = MS_NOSUID | MS_NODEV;

  const TemporaryFolder folder_{"/tmp"};
  bool isThere_;
};

/// Bytes that a server cannot make smaller.
std::string Noise(std::size_t size) {
  static std::mt19937 random(2026);
  std::uniform_int_distribution<int> byte(1, 255);
  std::string noise;
  for (std::size_t i = 0; i < size; ++i) noise.push_back(static_cast<char>(byte(random)));
  return noise;
}

TEST(ProjectOnAServer, KeepsAllThatWasAcknowledgedWhenTheServersDiskIsFull) {
  const SmallDisk disk;
  if (!disk) GTEST_SKIP() << "a disk can be made by the superuser alone";
  const auto server = Server::Make();
  const std::string tables = std::string(disk.Folder()) + "/tables";
  server->Run("mkdir '" + tables + "'");
  server->Sql("CREATE TABLESPACE small LOCATION '" + tables + "'");
  server->Sql("ALTER DATABASE vanzet SET default_tablespace=small");
  vdm::VdmStore store = project::StoreAt({.connection = server->Text(), .project = "lathe"}, "/nowhere");
  const auto write = [&](std::int64_t number) -> Result<void> {
    VANZET_DO(store.Replace(1000, VdmOf({{std::to_string(number)}, {Noise(4000)}})));
    return store.Commit("test");
  };
  std::int64_t written = 0;
  Result<void> last;
  while ((last = write(written + 1))) ASSERT_LT(++written, 10'000);
  EXPECT_THAT(last.fault().Message(), testing::AllOf(testing::StartsWith("postgresql://"),
                                                     testing::HasSubstr("the server's disk is full: ")));
  EXPECT_GT(written, 10);
  const auto newest = [&] { return RecordsOf(*store.Snapshot(1000)).at(0).at(0); };
  store.Discard();
  EXPECT_EQ(newest(), std::to_string(written));
  disk.Grow();
  const auto next = write(written + 1);
  ASSERT_TRUE(next) << next.fault().Message();
  EXPECT_EQ(newest(), std::to_string(written + 1));
  EXPECT_EQ(store.ListChanges({})->back().generation.number, written + 1);
}

}  // namespace
}  // namespace vanzet::test
