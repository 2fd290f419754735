#include "modeller/interrupt_watch.h"

namespace vanzet::modeller {
namespace {

volatile sig_atomic_t interrupted = 0;

void Note(int) {
  interrupted = 1;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  interrupted = 0;
  sigaction(SIGINT, nullptr, &former_);
  if (former_.sa_handler == SIG_IGN) return;
  struct sigaction noting = {};
  noting.sa_handler = Note;
  sigaction(SIGINT, &noting, nullptr);
}

InterruptWatch::~InterruptWatch() {
  sigaction(SIGINT, &former_, nullptr);
}

bool InterruptWatch::Came() {
  return interrupted != 0;
}

}  // namespace vanzet::modeller
