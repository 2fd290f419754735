#pragma once

#include <QTimer>
#include <QWidget>

#include "window/commands/body_reader.h"
#include "window/texts.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace vanzet::window {

/// The progress of the bodies that are read in the background, and a button that cancels it. Hidden while
/// nothing is read. While a percentage stays for
/// long, it says so, and its bar moves without one.
class ReadingBar final : public QWidget {
  Q_OBJECT
 public:
  ReadingBar(const Texts& texts, BodyReader& reader, QWidget* parent);

 private:
  void Show(const QString& name, double done);
  void ShowStandstill();

  const Texts& texts_;
  QLabel* name_;
  QProgressBar* bar_;
  QPushButton* cancel_;
  QString reading_;
  QTimer standstill_;  ///< until the percentage has stayed for long
};

}  // namespace vanzet::window
