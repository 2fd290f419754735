#include "window/watch/server_watch.h"

#include <utility>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

// The locks of a program that died go without a notification.
constexpr int kAsk = 10'000;  // milliseconds between questions for the holders of locks
constexpr int kAgain = 1000;  // milliseconds between attempts to connect

}  // namespace

ServerWatch::ServerWatch(project::StorePlace place) : place_(std::move(place)), ask_(this), again_(this) {
  ask_.setInterval(kAsk);
  again_.setInterval(kAgain);
  again_.setSingleShot(true);
  connect(&ask_, &QTimer::timeout, this, &ServerWatch::AskForHolders);
  connect(&again_, &QTimer::timeout, this, &ServerWatch::Connect);
}

void ServerWatch::Begin() {
  Connect();
}

void ServerWatch::Connect() {
  auto begun = vdm::PostgresWatch::Begin(place_.connection, place_.project);
  if (!begun) return Drop(begun.fault());
  watch_ = std::move(*begun);
  readable_ = std::make_unique<QSocketNotifier>(watch_->Descriptor(), QSocketNotifier::Read);
  connect(readable_.get(), &QSocketNotifier::activated, this, &ServerWatch::ReadNotes);
  ask_.start();
  if (std::exchange(isLost_, false)) emit Regained();
  AskForHolders();
}

void ServerWatch::Drop(const Fault& fault) {
  ask_.stop();
  // Not deleted at once: it may be its own signal that led here.
  if (readable_) readable_->setEnabled(false), readable_.release()->deleteLater();
  watch_.reset();
  again_.start();
  if (!std::exchange(isLost_, true)) emit Lost(ToQString(fault.Message()));
}

void ServerWatch::ReadNotes() {
  const auto seen = watch_->Peek();
  if (!seen) return Drop(seen.fault());
  if (*seen) emit Committed(**seen);
  if (watch_->TakeLocksNote()) AskForHolders();
}

void ServerWatch::AskForHolders() {
  auto holders = watch_->Holders();
  if (!holders) return Drop(holders.fault());
  if (holders_ != *holders) {
    holders_ = std::move(*holders);
    emit HoldersChanged(holders_);
  }
  ReadNotes();
}

}  // namespace vanzet::window
