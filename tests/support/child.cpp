#include "support/child.h"

#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace vanzet::test {

void Child::Line::Tell() {
  // The other end may be gone; that is noticed where it is awaited.
  static_cast<void>(send(descriptor_, ".", 1, MSG_NOSIGNAL));
}

bool Child::Line::Await() {
  char byte = 0;
  return recv(descriptor_, &byte, 1, 0) == 1;
}

Child::Child(const std::function<bool(Line&)>& body) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) throw std::runtime_error("no line to a child");
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no child could be made");
  line_.descriptor_ = ends[process_ == 0 ? 1 : 0];
  close(ends[process_ == 0 ? 0 : 1]);
  if (process_ == 0) _exit(body(line_) ? 0 : 1);
}

Child::~Child() {
  Kill();
  close(line_.descriptor_);
}

bool Child::End() {
  int status = 0;
  const bool ended = process_ != 0 && waitpid(process_, &status, 0) == process_;
  process_ = 0;
  return ended && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void Child::Kill() {
  if (process_ == 0) return;
  kill(process_, SIGKILL);
  End();
}

}  // namespace vanzet::test
