#pragma once

#include <cstdint>
#include <string>

namespace vanzet::platform {

/// The types of a box: its buttons plus its icon. The numbers are the platform's; scripts and transcripts
/// have the same ones.
namespace box {
inline constexpr std::int32_t kOk = 0;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kQuestionIcon = 32;
inline constexpr std::int32_t kExclamationIcon = 48;
}  // namespace box

/// The answers of a box, in the platform's numbers.
namespace answer {
inline constexpr std::int32_t kOk = 1;
inline constexpr std::int32_t kCancel = 2;
inline constexpr std::int32_t kYes = 6;
inline constexpr std::int32_t kNo = 7;
}  // namespace answer

/// A message that is shown until it is answered.
struct MessageBox {
  std::string caption;
  std::string text;
  std::int32_t type = box::kOk;
  void* owner = nullptr;  ///< the window in front of which it is shown; null: none
};

/// True when the answer matters; a box with one button has no other answer.
bool IsQuestion(std::int32_t type);

/// The answer that changes nothing: Cancel where the box offers it, else No; OK for one button.
std::int32_t SafeAnswer(std::int32_t type);

/// Shows boxes: on a screen, to a script, on the console.
class BoxPresenter {
 public:
  virtual ~BoxPresenter() = default;

  /// Returns when the box is answered.
  virtual std::int32_t Present(const MessageBox& message) = 0;
};

/// Shows the box through the current presenter and returns its answer.
std::int32_t Show(const MessageBox& message);

/// Boxes without a person to answer: each is a line on standard error, "caption: text", and gets the safe
/// answer, which the line of a question ends with. Where the host has failed (platform/host_extensions.h) its
/// line is the reason of all other boxes, and they have none.
class ConsoleBoxes final : public BoxPresenter {
 public:
  std::int32_t Present(const MessageBox& message) override;
};

/// Makes `presenter` the current one until the destructor restores the former one. Without any scope boxes go
/// to standard error.
class PresenterScope {
 public:
  /// `presenter` must outlive the scope.
  explicit PresenterScope(BoxPresenter& presenter);
  ~PresenterScope();
  PresenterScope(const PresenterScope&) = delete;
  PresenterScope& operator=(const PresenterScope&) = delete;

 private:
  BoxPresenter* former_;
};

}  // namespace vanzet::platform
