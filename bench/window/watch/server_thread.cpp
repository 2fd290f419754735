#include "window/watch/server_thread.h"

#include <QCoreApplication>
#include <QThread>
#include <utility>

namespace vanzet::window {
namespace {

/// How long the end waits for a watch that is connecting, which cannot be interrupted.
constexpr int kPatience = 500;  // milliseconds

}  // namespace

void ServerThread::Begin(const project::StorePlace& place) {
  End();
  qRegisterMetaType<std::vector<vdm::LockHolder>>("std::vector<vdm::LockHolder>");
  watch_ = new ServerWatch(place);
  thread_ = new QThread;
  watch_->moveToThread(thread_);
  connect(thread_, &QThread::started, watch_, &ServerWatch::Begin);
  connect(thread_, &QThread::finished, watch_, &QObject::deleteLater);
  connect(watch_, &ServerWatch::Committed, this, &ServerThread::Committed);
  connect(watch_, &ServerWatch::HoldersChanged, this, &ServerThread::HoldersChanged);
  connect(watch_, &ServerWatch::Lost, this, &ServerThread::Lost);
  connect(watch_, &ServerWatch::Regained, this, &ServerThread::Regained);
  thread_->start();
}

void ServerThread::End() {
  if (thread_ == nullptr) return;
  QThread* const thread = std::exchange(thread_, nullptr);
  disconnect(watch_, nullptr, this, nullptr);
  QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
  thread->quit();
  if (thread->wait(kPatience)) {
    delete thread;
  } else {
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  }
}

}  // namespace vanzet::window
