#include "window/docks/findings_in_front.h"

#include <QDockWidget>
#include <QTimer>
#include <QTreeWidget>

namespace vanzet::window {

FindingsInFront::FindingsInFront(QDockWidget& dock, QTreeWidget& list, QObject* parent)
    : QObject(parent), dock_(dock), list_(list) {
  // A list is cleared and filled again at once: only its final state counts.
  const auto look = [this] { QTimer::singleShot(0, this, &FindingsInFront::Look); };
  connect(list.model(), &QAbstractItemModel::rowsInserted, this, look);
  connect(list.model(), &QAbstractItemModel::modelReset, this, look);
}

void FindingsInFront::Look() {
  const bool hasFindings = list_.topLevelItemCount() > 0;
  if (hasFindings && !hadFindings_ && !dock_.isHidden()) dock_.raise();
  hadFindings_ = hasFindings;
}

}  // namespace vanzet::window
