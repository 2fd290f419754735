#include "platform/message_box.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

#include "platform/host_extensions.h"

namespace vanzet::platform {
namespace {

/// Keeps the text of the last box and answers Yes.
class Recorder final : public BoxPresenter {
 public:
  std::int32_t Present(const MessageBox& message) override {
    last = message.text;
    return answer::kYes;
  }
  std::string last;
};

TEST(SafeAnswer, IsTheOneThatChangesNothing) {
  EXPECT_EQ(SafeAnswer(0), 1);
  EXPECT_EQ(SafeAnswer(48), 1) << "one button with an icon";
  EXPECT_EQ(SafeAnswer(4), 7);
  EXPECT_EQ(SafeAnswer(36), 7) << "Yes and No with a question icon";
  EXPECT_EQ(SafeAnswer(1), 2);
  EXPECT_EQ(SafeAnswer(3), 2) << "Cancel before No";
}

TEST(IsQuestion, LooksAtTheButtonsAndNotAtTheIcon) {
  EXPECT_FALSE(IsQuestion(0));
  EXPECT_FALSE(IsQuestion(48));
  EXPECT_TRUE(IsQuestion(4));
  EXPECT_TRUE(IsQuestion(36));
}

TEST(ConsoleBoxes, WriteALineToStandardErrorAndGiveTheSafeAnswer) {
  testing::internal::CaptureStderr();
  ConsoleBoxes boxes;
  EXPECT_EQ(boxes.Present({"OrvoApi::MacroVdm", "1000: Create: vdm exist", box::kOk}), answer::kOk);
  EXPECT_EQ(boxes.Present({"", "Delete?", box::kYesNo}), answer::kNo);
  EXPECT_EQ(boxes.Present({"a", "b", 1}), answer::kCancel);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "OrvoApi::MacroVdm: 1000: Create: vdm exist\nDelete? [No]\na: b [Cancel]\n");
}

TEST(ConsoleBoxes, WriteNothingButQuestionsWhereTheHostHasFailed) {
  const auto former = std::exchange(extensionFinder, [](void*, const char* name) -> void* {
    std::int32_t (*const hasFailed)() = [] { return std::int32_t{1}; };
    return name == std::string_view("VanzetHasFailed") ? reinterpret_cast<void*>(hasFailed) : nullptr;
  });
  testing::internal::CaptureStderr();
  ConsoleBoxes boxes;
  EXPECT_EQ(boxes.Present({"OrvoApi::MacroVdm", "1000: SeekFromStart: Vdm not open", box::kOk}), answer::kOk);
  EXPECT_EQ(boxes.Present({"", "Delete?", box::kYesNo}), answer::kNo);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Delete? [No]\n");
  extensionFinder = former;
}

TEST(Show, GoesToThePresenterOfTheScopeAndThenToTheFormerOne) {
  Recorder outer;
  Recorder inner;
  const PresenterScope outerScope(outer);
  {
    const PresenterScope innerScope(inner);
    EXPECT_EQ(Show({"", "one", box::kYesNo}), answer::kYes);
  }
  Show({"", "two", box::kOk});
  EXPECT_EQ(inner.last, "one");
  EXPECT_EQ(outer.last, "two");
}

TEST(Show, GoesToStandardErrorAtFirst) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(Show({"a", "b", box::kOk}), answer::kOk);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a: b\n");
}

}  // namespace
}  // namespace vanzet::platform
