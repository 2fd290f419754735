#pragma once

#include <QWidget>

#include "window/commands/body_reader.h"
#include "window/texts.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace vanzet::window {

/// The progress of the bodies that are read in the background, and a button that cancels it. Hidden while
/// nothing is read.
class ReadingBar final : public QWidget {
  Q_OBJECT
 public:
  ReadingBar(const Texts& texts, BodyReader& reader, QWidget* parent);

 private:
  void Show(const QString& name, double done);

  const Texts& texts_;
  QLabel* name_;
  QProgressBar* bar_;
  QPushButton* cancel_;
};

}  // namespace vanzet::window
