#pragma once

#include <QDialog>

#include "window/texts.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vanzet::window {

/// Asks where a new project is to be made, and from which sample.
class NewProjectBox final : public QDialog {
  Q_OBJECT
 public:
  NewProjectBox(const Texts& texts, const QStringList& samples, const QString& place, QWidget* parent);

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
