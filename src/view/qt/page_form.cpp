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

constexpr const char* kPick = Translatable("Pick in the drawing: %1");
constexpr const char* kBrowse = Translatable("Choose a file: %1");
constexpr const char* kNeeded = Translatable("Needed");

/// The type of device whose picture is shown, 0 for none.
std::int32_t TypeOfPicture(std::int32_t bitmap) {
  const devices::Device* const device = devices::FindByPicture(bitmap);
  return device == nullptr ? 0 : device->code;
}

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

void PageForm::Show(const std::vector<Control>& controls, std::int32_t bitmap) {
  const std::int32_t type = TypeOfPicture(bitmap);
  for (const Row& row : rows_) {
    const bool isLength = UnitOf(row, type) == Unit::kMillimetre;
    if (ControlWidget* const widget = Find(row.field->control))
      widget->SetUnit(isLength ? ShownUnit() : LengthUnit::kMillimetre);
  }
  for (const Control& control : controls) {
    ControlWidget* const widget = Find(control.id);
    if (widget == nullptr) continue;
    Control shown = control;
    shown.isVisible = control.isVisible && !IsUnused(control, type);
    widget->Show(shown);
  }
  const PageValues values(controls);
  for (const Row& row : rows_) ShowNames(row, type, values);
}

Unit PageForm::UnitOf(const Row& row, std::int32_t type) {
  const devices::Letter* const letter = FindNamedLetter(type, row.field->letter);
  return letter != nullptr ? letter->unit : row.field->unit;
}

bool PageForm::IsUnused(const Control& control, std::int32_t type) const {
  const auto row = std::ranges::find_if(rows_, [&](const Row& each) {
    return each.field->letter != 0 && (each.field->control == control.id || each.field->label == control.id);
  });
  return row != rows_.end() && !control.isEnabled && FindNamedLetter(type, row->field->letter) == nullptr;
}

bool PageForm::IsNeeded(const Row& row, std::int32_t type) const {
  const bool isNewDevice = Find(control::kSaveDevice) != nullptr;
  const devices::Letter* const letter =
      isNewDevice && row.field->letter != 0 ? devices::FindLetter(type, row.field->letter) : nullptr;
  return row.field->isNeeded || (letter != nullptr && letter->entry == devices::Entry::kNeeded);
}

void PageForm::ShowFaults(const Sketch& sketch) {
  for (const auto& widget : widgets_) {
    const bool isWrong = std::ranges::find(sketch.wrong, widget->Id()) != sketch.wrong.end();
    widget->ShowFault(isWrong ? QString::fromStdString(sketch.fault) : QString());
  }
}

void PageForm::ShowNames(const Row& row, std::int32_t type, const PageValues& values) {
  const FieldRow& field = *row.field;
  const devices::Letter* const letter = field.letter == 0 ? nullptr : FindNamedLetter(type, field.letter);
  const Unit unit = UnitOf(row, type);
  const QString name = letter != nullptr ? Translate(letter->name) : Translate(field.name);
  if (row.name != nullptr) row.name->setText(name);
  if (row.unit != nullptr) row.unit->setText(QString::fromStdString(UnitText(unit)));
  if (row.needed != nullptr) {
    row.needed->setText(IsNeeded(row, type) ? QLatin1String(kNeededSign) : QString());
    row.needed->setToolTip(Translate(kNeeded));
  }
  SetSpokenNames(row, name, unit, values);
}

void PageForm::SetSpokenNames(const Row& row, const QString& name, Unit unit, const PageValues& values) {
  const FieldRow& field = *row.field;
  const Control* const control = values.Find(field.control);
  if (control == nullptr) return;
  QString about = field.label != 0 ? QString::fromStdString(values.TextOf(field.label))
                                   : QString::fromStdString(control->caption);
  if (!name.isEmpty()) about += (about.isEmpty() ? QString() : QStringLiteral(": ")) + name;
  if (about.isEmpty()) return;
  QString spoken = unit == Unit::kNone ? about
                                       : about + QStringLiteral(" (") +
                                             QString::fromStdString(UnitText(unit)) + QLatin1Char(')');
  if (row.needed != nullptr && !row.needed->text().isEmpty())
    spoken += QStringLiteral(", ") + Translate(kNeeded).toLower();
  Find(field.control)->SetSpokenName(spoken);
  if (field.inner != 0) WidgetOf(field.inner)->setAccessibleName(spoken);
  const Control* const button = values.Find(field.button);
  if (button != nullptr)
    Find(field.button)->SetSpokenName(Translate(button->text == "..." ? kBrowse : kPick).arg(about));
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
