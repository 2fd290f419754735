#include "vdm/commit_origin.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>

namespace vanzet::vdm {
namespace {

constexpr const char* kUnknown = "?";

std::string UserName() {
  std::array<char, 4096> buffer = {};
  passwd entry = {};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr) {
    return found->pw_name;
  }
  return std::to_string(geteuid());
}

std::string HostName() {
  std::array<char, 256> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : kUnknown;
}

}  // namespace

CommitOrigin OriginOfProcess() {
  return {UserName(), HostName(), program_invocation_short_name};
}

std::string TimeText() {
  const std::time_t now = std::time(nullptr);
  std::tm parts = {};
  std::array<char, 32> text = {};
  gmtime_r(&now, &parts);
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

}  // namespace vanzet::vdm
