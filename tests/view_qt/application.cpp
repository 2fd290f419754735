#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <iostream>

#include "view/qt/application.h"

namespace vanzet::view::qt {
namespace {

/// What Qt says, but for complaints that a window in memory is not one on a screen.
void Tell(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support"))) std::cerr << text.toStdString() << '\n';
}

/// An application of Qt that draws into memory, speaks English and keeps its settings in a folder of its own.
class ApplicationInMemory final : public testing::Environment {
 public:
  void SetUp() override {
    qInstallMessageHandler(Tell);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("VANZET_LANGUAGE", "en");
    qputenv("XDG_CONFIG_HOME", settings_.path().toUtf8());
    const auto made = EnsureApplication();
    ASSERT_TRUE(made) << made.fault().Told();
  }

 private:
  QTemporaryDir settings_;
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new ApplicationInMemory);

}  // namespace
}  // namespace vanzet::view::qt
