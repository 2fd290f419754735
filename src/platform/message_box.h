#pragma once

#include <cstdint>
#include <string>

namespace vanzet::platform {

/// What a box looks like: its buttons plus its icon. The numbers are the platform's and reach scripts and
/// transcripts as they stand.
namespace box {
inline constexpr std::int32_t kOk = 0;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kQuestionIcon = 32;
inline constexpr std::int32_t kExclamationIcon = 48;
}  // namespace box

/// What a box answers, in the platform's numbers.
namespace answer {
inline constexpr std::int32_t kOk = 1;
inline constexpr std::int32_t kCancel = 2;
inline constexpr std::int32_t kYes = 6;
inline constexpr std::int32_t kNo = 7;
}  // namespace answer

/// A message that stays until it is answered.
struct MessageBox {
  std::string caption;
  std::string text;
  std::int32_t type = box::kOk;
  void* owner = nullptr;  ///< the window in front of which it stands; null: none
};

/// True when there is something to decide; a box with one button is answered by itself.
bool IsQuestion(std::int32_t type);

/// The answer that changes nothing: Cancel where the box offers it, else No; OK for one button.
std::int32_t SafeAnswer(std::int32_t type);

/// Whoever shows boxes: a person's screen, a script, the console.
class BoxPresenter {
 public:
  virtual ~BoxPresenter() = default;

  /// Returns when it is answered.
  virtual std::int32_t Present(const MessageBox& message) = 0;
};

/// Shows the box through the presenter of the moment and returns its answer.
std::int32_t Show(const MessageBox& message);

/// Makes `presenter` the one of the moment while it lives, and then puts the former one back.
/// At first boxes go to standard error.
class PresenterScope {
 public:
  /// `presenter` has to outlive the scope.
  explicit PresenterScope(BoxPresenter& presenter);
  ~PresenterScope();
  PresenterScope(const PresenterScope&) = delete;
  PresenterScope& operator=(const PresenterScope&) = delete;

 private:
  BoxPresenter* former_;
};

}  // namespace vanzet::platform
