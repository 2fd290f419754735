#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/temporary_folder.h"

namespace vanzet::test {

/// Stands between a program and the PostgreSQL server of the tests, counts its round trips and breaks its
/// connections. It has a socket and a thread of its own.
class ServerProxy {
 public:
  enum class Cut { kNever, kBeforeCommit, kAfterCommit, kNow };

  explicit ServerProxy(std::string serverText);
  ~ServerProxy();

  /// The connection text of the server behind the proxy.
  std::string Text() const;

  /// Breaks the connections once: before the next COMMIT reaches the server, when its answer is there but was
  /// not passed on, or at the next message.
  void CutOnce(Cut cut) { cut_ = cut; }

  /// Requests that came after an answer, since the last call.
  int TakeRoundTrips() { return roundTrips_.exchange(0); }

 private:
  struct Pair {
    int client, server;
    bool isAnswered = true;
  };

  void Work();
  void Accept();
  bool Pass(Pair& pair, bool fromClient);
  bool IsCutBefore(std::string_view bytes);
  static void Close(const Pair& pair);

  std::string serverText_;
  TemporaryFolder folder_;
  int listening_ = -1;
  std::vector<Pair> pairs_;
  std::atomic<Cut> cut_ = Cut::kNever;
  std::atomic<int> roundTrips_ = 0;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace vanzet::test
