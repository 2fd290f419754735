#include <gmock/gmock.h>
#include <sys/mount.h>

#include "faults/sweep.h"

namespace vanzet::faults {
namespace {

/// A disk of 1 MB on which a folder lies; only the superuser can make one.
class SmallDisk {
 public:
  explicit SmallDisk(const std::filesystem::path& folder) : folder_(folder) {
    isThere_ = mount("vanzet-test", folder_.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, "size=1m") == 0;
  }
  ~SmallDisk() {
    if (isThere_) umount2(folder_.c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  explicit operator bool() const { return isThere_; }

  /// Leaves so many bytes free.
  void FillUpTo(std::uintmax_t bytes) const {
    const std::uintmax_t free = std::filesystem::space(folder_).available;
    test::WriteBytes(folder_ / "filling", std::string(free > bytes ? free - bytes : 0, 'x'));
  }

 private:
  std::filesystem::path folder_;
  bool isThere_;
};

class FullDisk : public testing::TestWithParam<Command> {};

TEST_P(FullDisk, LeavesTheOldStateOrTheNewOneAndAReason) {
  const Case work(GetParam());
  for (long step = 0; step < 4 * Points(); ++step) {
    const Workplace place;
    const SmallDisk disk(place.work());
    if (!disk) GTEST_SKIP() << "a disk can be made by the superuser alone";
    place.CopyFrom(work.before);
    const std::uintmax_t room =
        static_cast<std::uintmax_t>(step) * 200'000 / static_cast<std::uintmax_t>(4 * Points());
    disk.FillUpTo(room);
    SCOPED_TRACE(std::to_string(room) + " bytes free");
    const Outcome run = place.Vanzet(work.command.words);
    std::filesystem::remove(place.work() / "filling");
    Check(work, place, run);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, FullDisk, testing::ValuesIn(Commands()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vanzet::faults
