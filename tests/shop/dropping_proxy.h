#pragma once

#include <atomic>
#include <filesystem>
#include <random>
#include <thread>
#include <vector>

#include "support/temporary_folder.h"

namespace vanzet::test {

/// A bad network before a server: a connection passes some thousand bytes to the server and is then cut,
/// before the answer to the last ones. The server has acted on them, and the client does not know.
class DroppingProxy {
 public:
  /// `server` is the folder with the server's socket.
  explicit DroppingProxy(std::filesystem::path server);
  ~DroppingProxy();
  DroppingProxy(const DroppingProxy&) = delete;
  DroppingProxy& operator=(const DroppingProxy&) = delete;

  /// The folder of its own socket, for the host of a connection text.
  const std::filesystem::path& folder() const { return folder_.path(); }

  /// How many connections were cut.
  int Cuts() const { return cuts_; }

 private:
  void Serve();
  /// Passes bytes both ways until one end closes, or so many have gone to the server.
  void Pass(int client, int server, std::size_t most);

  const TemporaryFolder folder_;
  const std::filesystem::path server_;
  std::atomic<bool> isEnding_ = false;
  std::atomic<int> cuts_ = 0;
  int listener_ = -1;
  std::thread accepting_;
  std::vector<std::thread> connections_;
};

}  // namespace vanzet::test
