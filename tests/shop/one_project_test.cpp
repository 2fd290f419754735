#include <gmock/gmock.h>
#include <sys/mount.h>
#include <unistd.h>

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

TEST(ProjectOnAServer, IsOpenedAndReadOverOneConnection) {
  const auto server = Server::Make({"log_connections=on"});
  const TemporaryFolder folder;
  WriteBytes(folder / "bench.ini", "[store]\nengine=" + server->Text() + "\n");
  const std::size_t before = Count(server->Log(), "connection authorized");
  const auto project = project::Project::Open(folder.path(), folder.path());
  ASSERT_TRUE(project) << project.fault().Message();
  {
    vdm::VdmStore store = project::StoreOf(*project);
    EXPECT_TRUE(store.Replace(1, VdmOf({{"a"}})));
    EXPECT_TRUE(store.Commit("test"));
    EXPECT_EQ(Count(server->Log(), "connection authorized"), before + 1);
    // A second store at the same time has a connection and locks of its own.
    EXPECT_TRUE(store.Hold());
    vdm::VdmStore second = project::StoreOf(*project);
    second.WaitAtMost(std::chrono::milliseconds(0));
    EXPECT_EQ(second.Hold().fault().kind, FaultKind::kBusy);
  }
  EXPECT_EQ(Count(server->Log(), "connection authorized"), before + 2);
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
