#include "shop/dropping_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace vanzet::test {
namespace {

constexpr int kPatience = 50;  // milliseconds until the end of the test is noticed

sockaddr_un AddressIn(const std::filesystem::path& folder) {
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  (folder / ".s.PGSQL.5432").string().copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

/// Passes what has arrived; the number of bytes, or 0 at the end.
std::size_t PassOnce(int from, int to) {
  std::array<char, 4096> bytes{};
  const ssize_t count = recv(from, bytes.data(), bytes.size(), 0);
  if (count <= 0) return 0;
  if (send(to, bytes.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL) != count) return 0;
  return static_cast<std::size_t>(count);
}

}  // namespace

DroppingProxy::DroppingProxy(std::filesystem::path server) : folder_("/tmp"), server_(std::move(server)) {
  listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_un address = AddressIn(folder());
  const auto* const general = reinterpret_cast<const sockaddr*>(&address);
  if (bind(listener_, general, sizeof address) != 0 || listen(listener_, 16) != 0) {
    throw std::runtime_error("the proxy has no socket");
  }
  accepting_ = std::thread([this] { Serve(); });
}

DroppingProxy::~DroppingProxy() {
  isEnding_ = true;
  accepting_.join();
  for (std::thread& connection : connections_) connection.join();
  close(listener_);
}

void DroppingProxy::Serve() {
  std::mt19937 random(2026);
  std::uniform_int_distribution<std::size_t> most(3000, 30000);
  while (!isEnding_) {
    pollfd waiting{.fd = listener_, .events = POLLIN, .revents = 0};
    if (poll(&waiting, 1, kPatience) != 1) continue;
    const int client = accept(listener_, nullptr, nullptr);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = AddressIn(server_);
    connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const std::size_t limit = most(random);
    connections_.emplace_back([=, this] {
      Pass(client, server, limit);
      close(client);
      close(server);
    });
  }
}

void DroppingProxy::Pass(int client, int server, std::size_t most) {
  std::size_t passed = 0;
  while (!isEnding_) {
    std::array<pollfd, 2> ends = {{{client, POLLIN, 0}, {server, POLLIN, 0}}};
    if (poll(ends.data(), ends.size(), kPatience) <= 0) continue;
    if (ends[1].revents != 0 && PassOnce(server, client) == 0) return;
    if (ends[0].revents == 0) continue;
    const std::size_t count = PassOnce(client, server);
    if (count == 0) return;
    passed += count;
    if (passed < most) continue;
    ++cuts_;
    // The answer is there, and nobody gets it.
    pollfd answer{.fd = server, .events = POLLIN, .revents = 0};
    poll(&answer, 1, kPatience);
    return;
  }
}

}  // namespace vanzet::test
