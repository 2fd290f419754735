#pragma once

#include <atomic>
#include <cstddef>
#include <limits>
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

  /// Breaks each of the next connections when so many bytes have passed on it, both ways counted.
  void CutNext(int connections, std::size_t bytes) { cutAfter_ = bytes, toCut_ = connections; }

  /// Answers each of the next connections, in the server's place, that it cannot be had for a SQLSTATE.
  void RefuseNext(int connections, const char* state) { state_ = state, toRefuse_ = connections; }

  /// How many of these connections did not come yet.
  int LeftToSpoil() const { return toCut_ + toRefuse_; }

  /// Requests that came after an answer, since the last call.
  int TakeRoundTrips() { return roundTrips_.exchange(0); }

 private:
  struct Pair {
    int client, server;
    bool isAnswered = true;
    std::size_t most = std::numeric_limits<std::size_t>::max();  ///< bytes until the cut
  };

  void Work();
  void Accept();
  void Refuse(int client);
  bool Pass(Pair& pair, bool fromClient);
  bool IsCutBefore(std::string_view bytes);
  static void Close(const Pair& pair);

  std::string serverText_;
  TemporaryFolder folder_;
  int listening_ = -1;
  std::vector<Pair> pairs_;
  std::atomic<Cut> cut_ = Cut::kNever;
  std::atomic<int> roundTrips_ = 0, toCut_ = 0, toRefuse_ = 0;
  std::atomic<std::size_t> cutAfter_ = 0;
  std::atomic<const char*> state_ = nullptr;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace vanzet::test
