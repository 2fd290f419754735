#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <vector>

#include "project/store_place.h"
#include "vdm/postgres/watch.h"

namespace vanzet::window {

/// Notices what others do to a project on a server. It lives in a thread of its own, since connecting and
/// asking can take long; its signals reach the window's thread as events.
class ServerWatch final : public QObject {
  Q_OBJECT
 public:
  explicit ServerWatch(project::StorePlace place);

  /// Connects, and connects again whenever the connection breaks. Runs in the thread of the watch.
  void Begin();

 signals:
  void Committed(qint64 generation);
  /// Other people or programs hold locks than before.
  void HoldersChanged(const std::vector<vdm::LockHolder>& holders);
  void Lost(const QString& fault);
  /// There is a connection again; what was committed meanwhile was not noticed.
  void Regained();

 private:
  void Connect();
  void Drop(const Fault& fault);
  void ReadNotes();
  void AskForHolders();

  const project::StorePlace place_;
  std::unique_ptr<vdm::PostgresWatch> watch_;  ///< null while disconnected
  std::unique_ptr<QSocketNotifier> readable_;
  QTimer ask_, again_;
  std::vector<vdm::LockHolder> holders_;
  bool isLost_ = false;  ///< and said so
};

}  // namespace vanzet::window
