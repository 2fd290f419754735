#include "view/qt/page_form.h"

#include <QLabel>
#include <algorithm>

#include "devices/kinds.h"
#include "view/ids.h"
#include "view/qt/labels.h"
#include "view/qt/texts.h"
#include "view/shared/lengths.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kNeeded = Translatable("Needed");

void Mark(QLabel& label, Mnemonics& mnemonics) {
  const QString text = label.text().remove(QLatin1Char('&'));
  label.setText(QString::fromStdString(mnemonics.Mark(text.toStdString())));
}

}  // namespace

std::vector<QWidget*> PageForm::TabChain() const {
  std::vector<QWidget*> chain;
  for (const std::int32_t id : ControlsOf(layout_)) {
    QWidget* const widget = WidgetOf(id);
    if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus) chain.push_back(widget);
  }
  return chain;
}

void PageForm::Show(const std::vector<Control>& controls) {
  const std::vector<RowModel> models = RowsOf(layout_, controls);
  for (const RowModel& model : models) {
    if (ControlWidget* const widget = Find(model.field->control)) widget->SetUnit(model.lengthUnit);
  }
  const auto isHidden = [&](std::int32_t id) {
    return std::ranges::any_of(models, [&](const RowModel& model) {
      return model.isHidden && (model.field->control == id || model.field->label == id);
    });
  };
  for (const Control& control : controls) {
    ControlWidget* const widget = Find(control.id);
    if (widget == nullptr) continue;
    Control shown = control;
    shown.isVisible = control.isVisible && !isHidden(control.id);
    widget->Show(shown);
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) ShowTexts(rows_[i], models[i]);
}

void PageForm::ShowTexts(const Row& row, const RowModel& model) {
  if (row.name != nullptr) row.name->setText(QString::fromStdString(model.name));
  if (row.unit != nullptr) row.unit->setText(QString::fromStdString(model.unit));
  if (row.needed != nullptr) {
    row.needed->setText(model.isNeeded ? QLatin1String(kNeededSign) : QString());
    row.needed->setToolTip(Translate(kNeeded));
  }
  if (model.spoken.empty()) return;
  const QString spoken = QString::fromStdString(model.spoken);
  Find(row.field->control)->SetSpokenName(spoken);
  if (row.field->inner != 0) WidgetOf(row.field->inner)->setAccessibleName(spoken);
  if (!model.spokenButton.empty())
    Find(row.field->button)->SetSpokenName(QString::fromStdString(model.spokenButton));
}

void PageForm::ShowFaults(const Sketch& sketch) {
  for (const auto& widget : widgets_) {
    const bool isWrong = std::ranges::find(sketch.wrong, widget->Id()) != sketch.wrong.end();
    widget->ShowFault(isWrong ? QString::fromStdString(sketch.fault) : QString());
  }
}

void PageForm::MarkUnstored(std::int32_t button, bool isUnstored) {
  if (ControlWidget* const widget = Find(button)) widget->MarkUnstored(isUnstored);
}

void PageForm::MarkMnemonics(Mnemonics& mnemonics) {
  // The buttons of a page get their letters before its values.
  const std::vector<std::int32_t> actions = ActionsOf(layout_);
  const auto isAction = [&](const auto& widget) {
    return std::ranges::find(actions, widget->Id()) != actions.end();
  };
  for (const auto& widget : widgets_) {
    if (isAction(widget)) widget->MarkMnemonic(mnemonics);
  }
  for (const Row& row : rows_) {
    // A value that has a letter needs no letter in its name.
    const bool isNameLeading = row.name != nullptr && row.name->buddy() != nullptr;
    QLabel* const leading = row.caption != nullptr ? row.caption : isNameLeading ? row.name : nullptr;
    if (leading != nullptr) Mark(*leading, mnemonics);
  }
  for (const auto& widget : widgets_) {
    if (!isAction(widget)) widget->MarkMnemonic(mnemonics);
  }
}

bool PageForm::HasLetters() const {
  return std::ranges::any_of(rows_,
                             [](const Row& row) { return row.caption != nullptr || row.field->letter != 0; });
}

QWidget* PageForm::WidgetOf(std::int32_t control) const {
  if (const ControlWidget* const widget = Find(control)) return widget->Widget();
  return control == 0 ? nullptr : findChild<QWidget*>(QString::number(control));
}

ControlWidget* PageForm::Find(std::int32_t id) const {
  const auto widget = std::ranges::find(widgets_, id, &ControlWidget::Id);
  return widget == widgets_.end() ? nullptr : widget->get();
}

}  // namespace vanzet::view::qt
