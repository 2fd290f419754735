#pragma once

#include <QApplication>
#include <functional>

#include "base/result.h"

namespace vanzet::window {

/// The program's event loop. Whatever is thrown while an event is served is told, and the loop goes on: what
/// was closed before is kept, since the store knows nothing but whole transactions.
class Application final : public QApplication {
  Q_OBJECT
 public:
  Application(int& argc, char** argv);

  bool notify(QObject* receiver, QEvent* event) override;

  /// Told of what was thrown.
  std::function<void(const Fault&)> tell;
};

}  // namespace vanzet::window
