#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "dialog/controls.h"
#include "dialog/pages/page_owner.h"
#include "view/ids.h"

namespace vanzet::dialog {

/// A text that a control gets when the window is made.
struct StartText {
  std::int32_t control;
  std::int32_t message;
  std::string_view defaultText = {};  ///< empty: the plain one of the message
};

/// A property page as a table.
struct PageTemplate {
  std::string_view name;  ///< of its class
  std::int32_t id;        ///< of its window's template
  std::span<const ControlTemplate> controls;
  std::span<const StartText> texts;
};

/// The handler of a control.
template <class PageClass>
struct Handler {
  std::int32_t control;
  void (PageClass::*run)();
};

/// Runs the handler of the control. Does nothing for a control without one.
template <class PageClass>
void RunHandler(PageClass& page, std::span<const Handler<PageClass>> map, std::int32_t control) {
  const auto row = std::ranges::find(map, control, &Handler<PageClass>::control);
  if (row != map.end()) (page.*row->run)();
}

/// One page of the sheet.
///
/// Story    OnInitDialog once, before it is first shown; OnSetActive each time that it is, which reads its
///          record. A page keeps a working copy; nothing is stored when it is left
class Page {
 public:
  /// Both have to outlive the page.
  Page(PageOwner& owner, const PageTemplate& page);
  virtual ~Page() = default;
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  /// Makes the window if it does not exist yet, and activates the page.
  void Activate();

  virtual void OnSetActive() {}
  virtual void OnPress(std::int32_t /*button*/) {}
  virtual void OnChoose(std::int32_t /*combo*/) {}

  /// The controls whose contents differ from what is stored.
  std::vector<std::int32_t> Unstored() const { return controls_.NotKept(); }

  std::string_view Name() const { return page_.name; }
  Controls& TheControls() { return controls_; }

 protected:
  virtual void OnInitDialog();

  /// The data exchange. ReadControls returns the edit that does not hold a number where one is required, and
  /// changes nothing then.
  virtual std::optional<std::int32_t> ReadControls() { return std::nullopt; }
  virtual void FillControls() {}

  /// Takes the controls' values into the working copy. False, after a box, when an edit does not hold a
  /// number: the handler has to stop.
  bool UpdateData();

  /// Takes the contents of the controls for what is stored, after a record operation that returned 0.
  void KeepIf(std::int32_t written) {
    if (written == 0) controls_.Keep();
  }

  /// The frame of all picks: takes the controls' values, hides the dialog while the user works in the host's
  /// window, and shows the result.
  void Pick(const std::function<void()>& interaction);

  /// Shows `text` and puts the focus on `control`.
  void Refuse(const std::string& text, std::int32_t control);

  PageOwner& owner_;
  Controls controls_;

 private:
  const PageTemplate& page_;
  bool isMade_ = false;
};

/// The page of every node that has nothing to edit.
class CPageEmpty final : public Page {
 public:
  explicit CPageEmpty(PageOwner& owner) : Page(owner, kTemplate) {}

 private:
  static constexpr PageTemplate kTemplate = {"CPageEmpty", page_template::kEmpty, {}, {}};
};

}  // namespace vanzet::dialog
