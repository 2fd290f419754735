#include "modeller/exchange/limits.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <csignal>

namespace vanzet::modeller {
namespace {

// The address sanitizer takes terabytes of addresses for its own bookkeeping.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kMemoryCanBeLimited = false;
#else
constexpr bool kMemoryCanBeLimited = true;
#endif

void Limit(__rlimit_resource resource, std::uint64_t most) {
  rlimit limit = {};
  if (getrlimit(resource, &limit) != 0) return;
  if (limit.rlim_max == RLIM_INFINITY || limit.rlim_max > most) limit.rlim_max = most;
  limit.rlim_cur = limit.rlim_max;
  setrlimit(resource, &limit);
}

}  // namespace

void KeepWithin(int seconds, std::uint64_t bytes) {
  signal(SIGINT, SIG_IGN);
  // A write beyond the limit is then a fault to be told.
  signal(SIGXFSZ, SIG_IGN);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  Limit(RLIMIT_CORE, 0);
  Limit(RLIMIT_CPU, static_cast<std::uint64_t>(seconds));
  Limit(RLIMIT_FSIZE, bytes);
  if (kMemoryCanBeLimited) Limit(RLIMIT_AS, bytes);
}

}  // namespace vanzet::modeller
