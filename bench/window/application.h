#pragma once

#include <QApplication>
#include <functional>

#include "base/result.h"

namespace vanzet::window {

/// The program's event loop. What is thrown while an event is served is reported, and the loop goes on: what
/// was closed before is kept, since the store works with whole transactions.
class Application final : public QApplication {
  Q_OBJECT
 public:
  Application(int& argc, char** argv);

  bool notify(QObject* receiver, QEvent* event) override;

  /// Reports what was thrown.
  std::function<void(const Fault&)> reportFault;
};

}  // namespace vanzet::window
