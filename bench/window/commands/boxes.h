#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QProgressDialog>

#include "modeller/exchange.h"
#include "window/texts.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vanzet::window {

/// Shows that work is going on while it lives: a waiting cursor at once, and after a moment a box with a bar
/// and a button that ends the work. Meanwhile the window is drawn but takes no other input.
class BusyBox {
 public:
  BusyBox(const Texts& texts, Text work, QWidget* window);
  ~BusyBox();
  BusyBox(const BusyBox&) = delete;
  BusyBox& operator=(const BusyBox&) = delete;

  /// The listener for the work. Not valid for longer than this lives.
  modeller::Progress Progress();

  /// The user has ended the work.
  bool IsCancelled() const { return box_.wasCanceled(); }

 private:
  bool ShowProgress(double done);

  QProgressDialog box_;
  QElapsedTimer clock_;
};

/// Asks where a new project is to be made, and from which sample.
class NewProjectBox final : public QDialog {
  Q_OBJECT
 public:
  NewProjectBox(const Texts& texts, const QStringList& samples, const QString& place, QWidget* parent);

  void Choose(const QString& sample);  ///< empty: the first one stays
  QString Folder() const;
  QString Sample() const;

 private:
  void Browse();
  void Check();

  const Texts& texts_;
  QLineEdit* name_;
  QLineEdit* place_;
  QComboBox* sample_;
  QLabel* folder_;
  QPushButton* make_ = nullptr;
};

}  // namespace vanzet::window
