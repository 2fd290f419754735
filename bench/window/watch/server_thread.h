#pragma once

#include <QObject>
#include <vector>

#include "window/watch/server_watch.h"

class QThread;

namespace vanzet::window {

/// Watches a project on a server in a thread of its own: the signals of `ServerWatch`, as events of the
/// window's thread.
class ServerThread final : public QObject {
  Q_OBJECT
 public:
  explicit ServerThread(QObject* parent) : QObject(parent) {}
  ~ServerThread() override { End(); }

  /// Watches this project in the place of the former one.
  void Begin(const project::StorePlace& place);

  /// Nothing of the former watch arrives afterwards.
  void End();

  bool IsActive() const { return thread_ != nullptr; }

 signals:
  void Committed(qint64 generation);
  void HoldersChanged(const std::vector<vdm::LockHolder>& holders);
  void Lost(const QString& fault);
  void Regained();

 private:
  QThread* thread_ = nullptr;
  ServerWatch* watch_ = nullptr;  ///< belongs to that thread
};

}  // namespace vanzet::window
