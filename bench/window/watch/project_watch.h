#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <string>
#include <vector>

#include "window/session.h"
#include "window/watch/server_thread.h"

namespace vanzet::window {

/// Notices what other programs do to the open project: to its files, and to its store on a server.
///
/// Shape    `Changed` is emitted until `NoteRefresh` says that the project was read; never while the module
///          is at work, so that a dialog keeps its pages: what it misses then comes afterwards
class ProjectWatch final : public QObject {
  Q_OBJECT
 public:
  explicit ProjectWatch(QObject* parent);

  /// Watches this project in the place of the former one. It must live as long as it is watched.
  void Watch(const Session& session);

  /// The project is being read: changes until now are seen.
  void NoteRefresh();

 signals:
  void Begun();  ///< with another project, of which nothing is known yet
  void Changed();
  /// Another program has changed definitions while a call of the module is at work here.
  void ChangedMeanwhile();
  void HoldersChanged(const std::vector<vdm::LockHolder>& holders);
  void Lost(const QString& fault);  ///< the store on the server cannot be watched
  void Regained();

 private:
  void WatchFiles();
  void NoteCommit(qint64 generation);
  void MarkStale();
  void Look();
  void AskForHolders();

  const Session* session_ = nullptr;
  QFileSystemWatcher files_;
  QTimer soon_;  ///< gathers the many changes of one commit
  QTimer poll_;  ///< for what is missed: folders of a network, and changes while other work went on
  std::string fileStamps_;  ///< of the files as they were read
  qint64 generation_ = 0;   ///< the last one that was read from a server
  bool isStale_ = false;    ///< definitions were committed that were not read
  ServerThread server_;     ///< active where the store is not a file
  std::vector<vdm::LockHolder> holders_;
};

}  // namespace vanzet::window
