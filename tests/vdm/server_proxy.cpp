#include "vdm/server_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "support/test_server.h"

namespace vanzet::test {
namespace {

constexpr const char* kSocket = ".s.PGSQL.5432";

/// The statement as a message has it: between the end of its name, which is empty, and its own end.
constexpr std::string_view kCommit("\0COMMIT\0", 8);

sockaddr_un AddressOf(const std::string& folder) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  const std::string path = folder + "/" + kSocket;
  EXPECT_LT(path.size(), sizeof address.sun_path);
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

int NewSocket() {
  return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

std::string HostOf(const std::string& text) {
  const std::size_t start = text.find("host=") + 5;
  return text.substr(start, text.find(' ', start) - start);
}

}  // namespace

ServerProxy::ServerProxy(std::string serverText)
    : serverText_(std::move(serverText)), listening_(NewSocket()) {
  const sockaddr_un address = AddressOf(folder_.path());
  EXPECT_EQ(bind(listening_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(listen(listening_, 8), 0);
  thread_ = std::thread([this] { Work(); });
}

ServerProxy::~ServerProxy() {
  isEnding_ = true;
  thread_.join();
  for (const Pair& pair : pairs_) Close(pair);
  close(listening_);
}

std::string ServerProxy::Text() const {
  std::string text = serverText_;
  const std::string host = HostOf(text);
  return text.replace(text.find(host), host.size(), folder_.path().string());
}

void ServerProxy::Work() {
  while (!isEnding_) {
    std::vector<pollfd> waiting = {{listening_, POLLIN, 0}};
    for (const Pair& pair : pairs_) {
      waiting.push_back({pair.client, POLLIN, 0});
      waiting.push_back({pair.server, POLLIN, 0});
    }
    if (poll(waiting.data(), waiting.size(), 10) <= 0) continue;
    std::vector<Pair> going;
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
      Pair pair = pairs_[i];
      const bool goes = (waiting[2 * i + 1].revents == 0 || Pass(pair, true)) &&
                        (waiting[2 * i + 2].revents == 0 || Pass(pair, false));
      if (goes) going.push_back(pair);
      if (!goes) Close(pair);
    }
    pairs_ = std::move(going);
    if (waiting[0].revents != 0) Accept();
  }
}

void ServerProxy::Accept() {
  const int client = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
  if (toRefuse_ > 0) return Refuse(client);
  const int server = NewSocket();
  const sockaddr_un address = AddressOf(HostOf(serverText_));
  EXPECT_EQ(connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  Pair& pair = pairs_.emplace_back(Pair{client, server});
  if (toCut_ == 0) return;
  pair.most = cutAfter_;
  --toCut_;
}

/// The server's message: its kind, its length, and fields of a letter and a text each.
void ServerProxy::Refuse(int client) {
  --toRefuse_;
  std::array<char, 4096> request = {};
  EXPECT_GT(read(client, request.data(), request.size()), 0);
  const char end = '\0';
  const std::string fields = std::string("SFATAL") + end + "VFATAL" + end + "C" + state_.load() + end +
                             "Mno entry" + end + "Fnone.c" + end + "L7" + end + "Rnone" + end + end;
  const std::string message = std::string("E\0\0\0", 4) + static_cast<char>(fields.size() + 4) + fields;
  EXPECT_EQ(send(client, message.data(), message.size(), MSG_NOSIGNAL), static_cast<ssize_t>(message.size()));
  close(client);
}

bool ServerProxy::Pass(Pair& pair, bool fromClient) {
  std::array<char, 65536> buffer = {};
  const ssize_t size = read(fromClient ? pair.client : pair.server, buffer.data(), buffer.size());
  if (size <= 0) return false;
  const std::string_view bytes(buffer.data(), std::min(static_cast<std::size_t>(size), pair.most));
  if (fromClient && pair.isAnswered) ++roundTrips_;
  pair.isAnswered = !fromClient;
  if (fromClient && IsCutBefore(bytes)) return false;
  const ssize_t sent = send(fromClient ? pair.server : pair.client, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  pair.most -= bytes.size();
  if (sent != size || pair.most == 0) return false;
  if (!fromClient || cut_ != Cut::kAfterCommit || bytes.find(kCommit) == bytes.npos) return true;
  cut_ = Cut::kNever;
  EXPECT_GT(read(pair.server, buffer.data(), buffer.size()), 0);
  return false;
}

bool ServerProxy::IsCutBefore(std::string_view bytes) {
  const bool isCommit = bytes.find(kCommit) != bytes.npos;
  if (cut_ != Cut::kNow && (cut_ != Cut::kBeforeCommit || !isCommit)) return false;
  cut_ = Cut::kNever;
  return true;
}

void ServerProxy::Close(const Pair& pair) {
  close(pair.client);
  close(pair.server);
}

}  // namespace vanzet::test
