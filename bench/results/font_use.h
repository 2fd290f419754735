#pragma once

#include <QGuiApplication>
#include <optional>

namespace vanzet::results {

/// Lets a program without a window use fonts, as long as it lives: they need an application. This one shows
/// nothing on any display. Where there is an application already, nothing happens.
class FontUse {
 public:
  FontUse() {
    if (QCoreApplication::instance() != nullptr) return;
    // Messages of Qt about a missing display or session do not concern a picture.
    former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    application_.emplace(count_, arguments_);
  }
  ~FontUse() {
    if (!application_) return;
    application_.reset();
    qInstallMessageHandler(former_);
  }
  FontUse(const FontUse&) = delete;
  FontUse& operator=(const FontUse&) = delete;

 private:
  char name_[7] = "vanzet", option_[10] = "-platform", platform_[10] = "offscreen";
  char* arguments_[4] = {name_, option_, platform_, nullptr};
  int count_ = 3;
  std::optional<QGuiApplication> application_;
  QtMessageHandler former_ = nullptr;
};

}  // namespace vanzet::results
