#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <thread>

#include "vdm/postgres/engine.h"

namespace vanzet::vdm {
namespace {

/// Listens on this machine and says to everyone that it does not encrypt.
class PlainServer {
 public:
  PlainServer() : listening_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    EXPECT_EQ(bind(listening_, reinterpret_cast<sockaddr*>(&place), size), 0);
    EXPECT_EQ(listen(listening_, 8), 0);
    EXPECT_EQ(getsockname(listening_, reinterpret_cast<sockaddr*>(&place), &size), 0);
    port_ = ntohs(place.sin_port);
    thread_ = std::thread([this] { Work(); });
  }
  ~PlainServer() {
    shutdown(listening_, SHUT_RDWR);
    thread_.join();
    close(listening_);
  }
  PlainServer(const PlainServer&) = delete;
  PlainServer& operator=(const PlainServer&) = delete;

  std::string Text() const { return "host=127.0.0.1 dbname=vanzet port=" + std::to_string(port_); }
  int asked() const { return asked_; }

 private:
  void Work() {
    for (int client = accept(listening_, nullptr, nullptr); client >= 0;
         client = accept(listening_, nullptr, nullptr)) {
      std::array<char, 8> request = {};
      if (recv(client, request.data(), request.size(), MSG_WAITALL) == 8) {
        ++asked_;
        static_cast<void>(send(client, "N", 1, MSG_NOSIGNAL));
      }
      close(client);
    }
  }

  int listening_, port_ = 0;
  std::atomic<int> asked_ = 0;
  std::thread thread_;
};

TEST(ServerThatDoesNotEncrypt, IsAskedOnceWhereEncryptionIsWanted) {
  PlainServer server;
  PostgresEngine engine(server.Text() + " sslmode=require gssencmode=disable", "lathe");
  const auto numbers = engine.Numbers();
  ASSERT_FALSE(numbers);
  EXPECT_THAT(numbers.fault().text, testing::AllOf(testing::StartsWith("cannot be reached: "),
                                                   testing::HasSubstr("does not support SSL")));
  EXPECT_EQ(server.asked(), 1);
}

}  // namespace
}  // namespace vanzet::vdm
