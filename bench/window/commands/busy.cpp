#include "window/commands/busy.h"

#include <QApplication>
#include <QPushButton>

namespace vanzet::window {
namespace {

constexpr int kMoment = 400;  // milliseconds before the box comes up
constexpr int kSteps = 1000;

}  // namespace

Busy::Busy(const Texts& texts, Text what, QWidget* window)
    : box_(texts(what), texts(Text::kCancel), 0, 0, window) {
  box_.setWindowModality(Qt::WindowModal);
  box_.setWindowTitle(texts(Text::kWindowTitle));
  box_.setMinimumDuration(1 << 30);  // it is shown from here
  box_.setAutoReset(false);
  box_.setAutoClose(false);
  box_.setMinimumWidth(360);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  clock_.start();
}

Busy::~Busy() {
  QApplication::restoreOverrideCursor();
}

modeller::Progress Busy::progress() {
  return [this](double done) { return Told(done); };
}

bool Busy::Told(double done) {
  if (!box_.isVisible() && clock_.elapsed() > kMoment) box_.show();
  if (done > 0) {
    box_.setMaximum(kSteps);
    box_.setValue(static_cast<int>(done * kSteps));
  }
  QCoreApplication::processEvents(box_.isVisible() ? QEventLoop::AllEvents
                                                   : QEventLoop::ExcludeUserInputEvents);
  return !box_.wasCanceled();
}

}  // namespace vanzet::window
