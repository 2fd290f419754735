#pragma once

#include <functional>

namespace vanzet::test {

/// A process of the test's own, made by a fork, with a line to and from its parent.
/// Make it before the parent opens what must not be carried over a fork.
class Child {
 public:
  /// One end of the line.
  class Line {
   public:
    void Tell();   ///< wakes the other end
    bool Await();  ///< false when the other end is gone

   private:
    friend class Child;
    int descriptor_ = -1;
  };

  /// Runs `body` in the child; it ends well when `body` gives true.
  explicit Child(const std::function<bool(Line&)>& body);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  Line& line() { return line_; }

  /// Its number in the system.
  int process() const { return process_; }

  /// Waits for the end; true when it was a good one.
  bool End();

  /// Ends it at once, as a crash would.
  void Kill();

 private:
  int process_ = 0;  ///< 0: has ended
  Line line_;
};

}  // namespace vanzet::test
