#include "vdm/postgres/watch.h"

#include <poll.h>

#include <algorithm>
#include <charconv>

#include "vdm/postgres/channel.h"

namespace vanzet::vdm {

Result<std::unique_ptr<PostgresWatch>> PostgresWatch::Begin(const std::string& connectionText,
                                                            const std::string& project) {
  VANZET_TRY(auto connection, PostgresConnection::Open(connectionText));
  // The name of a channel cannot be a parameter; this one has letters and digits alone.
  const std::string listen = "LISTEN " + ChannelOf(project);
  VANZET_DO(connection->Run({{listen}}));
  return std::unique_ptr<PostgresWatch>(new PostgresWatch(std::move(connection), project));
}

Result<std::optional<std::int64_t>> PostgresWatch::Peek() {
  VANZET_TRY(const auto payloads, connection_->Notifications());
  std::optional<std::int64_t> last;
  for (const std::string& payload : payloads) {
    if (payload == kLocksNote) {
      hasLocksNote_ = true;
      continue;
    }
    std::int64_t generation = 0;
    // Any program of the database may notify: a text that is not a number is taken for a commit, too.
    std::from_chars(payload.data(), payload.data() + payload.size(), generation);
    last = std::max(last.value_or(0), generation);
  }
  return last;
}

Result<std::optional<std::int64_t>> PostgresWatch::Wait(std::chrono::milliseconds longestWait) {
  const auto end = std::chrono::steady_clock::now() + longestWait;
  while (true) {
    VANZET_TRY(const auto seen, Peek());
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    if (seen || left.count() <= 0) return seen;
    pollfd waiting = {Descriptor(), POLLIN, 0};
    poll(&waiting, 1, static_cast<int>(std::min<std::int64_t>(left.count(), INT32_MAX)));
  }
}

}  // namespace vanzet::vdm
