#include <gtest/gtest.h>

#include <QByteArray>

#include "view/qt/application.h"
#include "view_qt/memory_display.h"

namespace vanzet::test {
namespace {

/// An application of Qt that draws into memory and speaks English.
class ApplicationInMemory final : public testing::Environment {
 public:
  void SetUp() override {
    UseMemoryAsDisplay();
    qputenv("VANZET_LANGUAGE", "en");
    const auto made = view::qt::EnsureApplication();
    ASSERT_TRUE(made) << made.fault().Message();
  }
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new ApplicationInMemory);

}  // namespace
}  // namespace vanzet::test
