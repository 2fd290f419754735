#pragma once

#include <QDockWidget>

#include "window/texts.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace vanzet::window {

/// Names with pictures to choose from while the user is asked for a pick, to be searched by any word. The
/// dock is visible for that time only. The arrows walk the list from the search field, and Enter takes the
/// name.
class ChoiceDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit ChoiceDock(const Texts& texts, QWidget* parent = nullptr);

  /// No name is marked at first.
  void Offer(const QString& title, const QStringList& names);

  /// Gives a name its picture and a line about it. A name that is not offered is ignored.
  void Describe(const QString& name, const QPixmap& picture, const QString& about);

  QListWidget& list() { return *list_; }
  QLineEdit& search() { return *search_; }

 signals:
  void Marked(const QString& name);  ///< the user wants to see it
  void Chosen(const QString& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Filter();
  void Walk(int step);

  QLineEdit* search_;
  QListWidget* list_;
};

}  // namespace vanzet::window
