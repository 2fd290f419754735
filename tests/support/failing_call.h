#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "support/fake_host.h"

namespace vanzet::test {

/// How a call goes wrong.
enum class Failure {
  kRefused,  ///< the host says no, where the function has a way to say so
  kMissing,  ///< the host has no such function at that moment: the fallback answers
};

inline void PrintTo(Failure failure, std::ostream* out) {
  *out << (failure == Failure::kRefused ? "refused" : "missing");
}

/// Has one call of a host in memory go wrong while it lives, for a test to try every call of an operation in
/// turn. Calls count from 1, from its beginning on.
class FailingCall {
 public:
  FailingCall(FakeHost& host, Failure failure, int number);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  /// The function whose call went wrong; empty when fewer calls came.
  const std::string& name() const { return name_; }

 private:
  void Called(const std::string& name);
  void Refuse(const std::string& name);
  void PutBack();

  FakeHost& host_;
  Failure failure_;
  int number_;
  int calls_ = 0;
  std::string name_;
  std::function<void()> putBack_;  ///< what ends the failure; empty: there is none now
};

/// Runs `work` once for each call that goes wrong, each time in a world of its own made by `makeWorld`, until
/// all calls go well; `check(world, name)` looks at what is left.
template <class MakeWorld, class Work, class Check>
void WithEveryCallFailing(Failure failure, const MakeWorld& makeWorld, const Work& work, const Check& check) {
  for (int number = 1;; ++number) {
    const auto world = makeWorld();
    FailingCall failing(world->host, failure, number);
    work(*world);
    if (failing.name().empty()) return;
    check(*world, failing.name());
  }
}

}  // namespace vanzet::test
