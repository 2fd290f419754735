#pragma once

#include <QDockWidget>

class QListWidget;

namespace vanzet::window {

/// Names to choose from while a pick is asked for. It is shown for that time alone.
class ChoiceDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit ChoiceDock(QWidget* parent = nullptr);

  void Offer(const QString& title, const QStringList& names);
  QListWidget& list() { return *list_; }

 signals:
  void Marked(const QString& name);  ///< looked at
  void Chosen(const QString& name);

 private:
  QListWidget* list_;
};

}  // namespace vanzet::window
