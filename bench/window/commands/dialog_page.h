#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <span>
#include <vector>

namespace vanzet::window {

/// The text of the node that is selected in the dialog of the module; empty while it is not open.
QString SelectedPage();

/// Brings the dialog of the module to a page as a person does, by its widgets: the list of spurs, then the
/// tree. The controls of the dialog on a display have their numbers as names.
class DialogPage final : public QObject {
 public:
  explicit DialogPage(QObject* parent);

  /// Shows the page of the node, for a spur, as soon as the dialog is open. The keyboard goes to the
  /// first of the fields that the page has then, which are controls.
  void Show(int spur, std::int32_t node, std::span<const std::int32_t> fields = {});

 private:
  void TryToShow();

  QTimer wait_;
  int spur_ = 0, tries_ = 0;
  std::int32_t node_ = 0;
  std::vector<std::int32_t> fields_;
};

}  // namespace vanzet::window
