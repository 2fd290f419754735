#include "modeller/exchange/confinement.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>

#include "base/files/descriptor_posix.h"
#include "modeller/exchange/call_filter.h"
#include "modeller/exchange/sanitizer.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;
using files::Descriptor;

// Rights to files by the version of Landlock that knows them; the system's header may be older.
constexpr std::uint64_t kOfVersion1 = (std::uint64_t{1} << 13U) - 1;
constexpr std::uint64_t kRefer = std::uint64_t{1} << 13U, kTruncate = std::uint64_t{1} << 14U,
                        kDeviceCalls = std::uint64_t{1} << 15U;
constexpr int kReferSince = 2, kTruncateSince = 3, kDeviceCallsSince = 5;

std::uint64_t RightsOf(int version) {
  return kOfVersion1 | (version >= kReferSince ? kRefer : 0) | (version >= kTruncateSince ? kTruncate : 0) |
         (version >= kDeviceCallsSince ? kDeviceCalls : 0);
}

constexpr std::uint64_t kToRead = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t kToWrite = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR |
                                   LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG |
                                   LANDLOCK_ACCESS_FS_REMOVE_FILE | kTruncate;

/// The path keeps these rights of those that the rules are about.
void Allow(const Descriptor& rules, const fs::path& path, std::uint64_t rights) {
  const Descriptor there(path, O_PATH);
  if (path.empty() || !there) return;
  landlock_path_beneath_attr rule = {};
  rule.allowed_access = rights;
  rule.parent_fd = there.number();
  syscall(SYS_landlock_add_rule, rules.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
}

/// Returns the version of Landlock when the rules are in force, else 0.
int GuardFiles(const Needs& needs) {
  const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version <= 0) return 0;
  const std::uint64_t all = RightsOf(static_cast<int>(version));
  landlock_ruleset_attr attributes = {};
  attributes.handled_access_fs = all;
  const Descriptor rules(
      static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof(attributes), 0)));
  if (!rules) return 0;
  for (const fs::path& file : needs.filesToRead) Allow(rules, file, all & kToRead);
  Allow(rules, needs.folderToWrite, all & kToWrite);
  return syscall(SYS_landlock_restrict_self, rules.number(), 0) == 0 ? static_cast<int>(version) : 0;
}

}  // namespace

Confinement Confine(const Needs& needs) {
  if (kHasAddressSanitizer) return {};
  // Files of the system that are read once: the times in STEP files are those of the local zone.
  tzset();
  // A program with more rights than its caller could not be confined by it.
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return {};
  Confinement confinement;
  confinement.landlock = GuardFiles(needs);
  confinement.hasCallFilter = FilterCalls();
  return confinement;
}

}  // namespace vanzet::modeller
