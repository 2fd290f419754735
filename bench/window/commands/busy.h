#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

#include "modeller/exchange.h"
#include "window/texts.h"

namespace vanzet::window {

/// Says that work is going on while it lives: a waiting cursor at once, and after a moment a box with a bar
/// and a button that ends the work. Meanwhile the window is drawn but takes no other input.
class Busy {
 public:
  Busy(const Texts& texts, Text what, QWidget* window);
  ~Busy();
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

  /// For whoever does the work; not longer than this lives.
  modeller::Progress progress();

 private:
  bool Told(double done);

  QProgressDialog box_;
  QElapsedTimer clock_;
};

}  // namespace vanzet::window
