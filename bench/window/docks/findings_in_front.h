#pragma once

#include <QObject>

class QDockWidget;
class QTreeWidget;

namespace vanzet::window {

/// Brings the dock of findings to the front of those that share its place when there are findings and were
/// none before. Later lists leave the person at the dock that is read; a dock that is closed stays closed.
class FindingsInFront final : public QObject {
  Q_OBJECT
 public:
  /// `list` is in the dock and has a row for each finding.
  FindingsInFront(QDockWidget& dock, QTreeWidget& list, QObject* parent);

  /// Another project is open: what comes is the first of it.
  void Begin() { hadFindings_ = false; }

 private:
  void Look();

  QDockWidget& dock_;
  QTreeWidget& list_;
  bool hadFindings_ = false;
};

}  // namespace vanzet::window
