#include "window/watch/project_watch.h"

#include <QFileInfo>
#include <utility>

#include "vdm/embedded/lock_file_holders.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kSoon = 50;    // milliseconds
constexpr int kPoll = 1000;  // milliseconds

}  // namespace

ProjectWatch::ProjectWatch(QObject* parent) : QObject(parent), server_(this) {
  soon_.setSingleShot(true);
  soon_.setInterval(kSoon);
  poll_.setInterval(kPoll);
  connect(&soon_, &QTimer::timeout, this, &ProjectWatch::Look);
  connect(&poll_, &QTimer::timeout, this, &ProjectWatch::Look);
  connect(&poll_, &QTimer::timeout, this, &ProjectWatch::AskForHolders);
  const auto begin = [this] {
    if (!soon_.isActive()) soon_.start();
  };
  connect(&files_, &QFileSystemWatcher::fileChanged, this, begin);
  connect(&files_, &QFileSystemWatcher::directoryChanged, this, begin);
  connect(&server_, &ServerThread::Committed, this, &ProjectWatch::NoteCommit);
  connect(&server_, &ServerThread::HoldersChanged, this, &ProjectWatch::HoldersChanged);
  connect(&server_, &ServerThread::Lost, this, &ProjectWatch::Lost);
  connect(&server_, &ServerThread::Regained, this, &ProjectWatch::Regained);
  connect(&server_, &ServerThread::Regained, this, &ProjectWatch::MarkStale);
}

void ProjectWatch::Watch(const Session& session) {
  server_.End();
  session_ = &session;
  isStale_ = false;
  holders_.clear();
  emit Begun();
  const project::StorePlace& store = session.project().settings().store;
  if (!store.connection.empty()) server_.Begin(store);
  WatchFiles();
  poll_.start();
}

/// Files that were replaced or made since are watched as well from now on.
void ProjectWatch::WatchFiles() {
  const QStringList former = files_.files() + files_.directories();
  QStringList wanted = {ToQString(session_->project().folder())};
  for (const auto& file : session_->WatchedFiles()) {
    if (QFileInfo::exists(ToQString(file))) wanted << ToQString(file);
  }
  for (const QString& path : former) {
    if (!wanted.contains(path)) files_.removePath(path);
  }
  for (const QString& path : std::as_const(wanted)) {
    if (!former.contains(path)) files_.addPath(path);
  }
}

void ProjectWatch::NoteRefresh() {
  if (session_ == nullptr) return;
  fileStamps_ = session_->FileStamps();
  isStale_ = false;
  if (!server_.IsActive()) return;
  const auto last = session_->LastGeneration();
  if (last) generation_ = *last;
}

/// Commits of this window are those of its last reading, or of the call that is at work.
void ProjectWatch::NoteCommit(qint64 generation) {
  if (generation > generation_) MarkStale();
}

void ProjectWatch::MarkStale() {
  isStale_ = true;
  if (session_->isAtWork()) emit ChangedMeanwhile();
  Look();
}

void ProjectWatch::Look() {
  if (session_ == nullptr || session_->isAtWork()) return;
  WatchFiles();
  if (isStale_ || session_->FileStamps() != fileStamps_) emit Changed();
}

/// The holders of locks on a file do not notify; a server has its own watch.
void ProjectWatch::AskForHolders() {
  if (server_.IsActive() || session_->isAtWork()) return;
  auto holders = vdm::HoldersOf(session_->project().folder() / "store.lock");
  if (holders == holders_) return;
  holders_ = std::move(holders);
  emit HoldersChanged(holders_);
}

}  // namespace vanzet::window
