#include "view/qt/page_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "macro/tables/device_types.h"
#include "view/qt/fonts.h"
#include "view/qt/picture_widget.h"

namespace vanzet::view::qt {
namespace {

constexpr Words kPick = {"Pick in the drawing: %1", "In der Zeichnung wählen: %1"};
constexpr Words kBrowse = {"Choose a file: %1", "Datei wählen: %1"};
constexpr Words kNotUsed = {"Not used", "Nicht verwendet"};

constexpr int kGap = 8;
constexpr int kGroupGap = 16;
constexpr int kLeastForm = 340;

/// Columns of a form.
enum Column { kLetterColumn, kNameColumn, kCellColumn, kColumns };

/// How wide an edit for a number is, in digits.
constexpr int kDigits = 12;

void NarrowForNumbers(QWidget* edit) {
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kDigits + 2 * kGap);
}

/// The type of device whose picture is shown, 0 for none.
std::int32_t TypeOfPicture(std::int32_t bitmap) {
  for (const DeviceType& type : DeviceTypes()) {
    if (type.picture == bitmap) return type.code;
  }
  return 0;
}

QFrame* Line(QWidget* parent) {
  auto* const line = new QFrame(parent);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  return line;
}

}  // namespace

PagePanel::PagePanel(const PageLayout& layout, const std::vector<Control>& controls, const Send& send,
                     QWidget* parent)
    : QWidget(parent), layout_(layout), send_(send), controls_(&controls) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kGap);
  BuildTitle();
  auto* const middle = new QHBoxLayout;
  middle->setSpacing(2 * kGap);
  rows->addLayout(middle, 1);
  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  auto* const form = new QWidget;
  BuildForm(form);
  scroll_->setWidget(form);
  // The form is a window's background, not that of a list.
  scroll_->viewport()->setAutoFillBackground(false);
  form->setAutoFillBackground(false);
  middle->addWidget(scroll_, 0);
  if (layout_.picture != 0) {
    picture_ = new PictureWidget(Said(layout_.noPicture), this);
    picture_->setObjectName(QString::number(layout_.picture));
    middle->addWidget(picture_, 1);
  }
  if (!layout_.actions.empty()) rows->addWidget(Actions(layout_.actions));
  OrderTabs();
  controls_ = nullptr;
}

void PagePanel::BuildTitle() {
  auto* const title =
      layout_.header != 0 ? static_cast<QLabel*>(Take(layout_.header, this)) : new QLabel(this);
  if (layout_.header == 0) title_ = title;
  SetFont(*title, Type::kTitle);
  layout()->addWidget(title);
}

void PagePanel::BuildForm(QWidget* form) {
  auto* const grid = new QGridLayout(form);
  grid->setContentsMargins(0, 0, kGap, 0);
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap * 3 / 4);
  grid->setColumnStretch(kCellColumn, 1);
  for (const FieldGroup& group : layout_.groups) AddGroup(*grid, group);
  AddLeftOvers(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
}

void PagePanel::AddGroup(QGridLayout& grid, const FieldGroup& group) {
  QWidget* const form = grid.parentWidget();
  if (grid.count() > 0) grid.setRowMinimumHeight(grid.rowCount(), kGroupGap);
  auto* const title = group.titleLabel != 0 ? static_cast<QLabel*>(Take(group.titleLabel, form))
                                            : new QLabel(Said(group.title), form);
  SetFont(*title, Type::kGroup);
  grid.addWidget(title, grid.rowCount(), 0, 1, kColumns);
  grid.addWidget(Line(form), grid.rowCount(), 0, 1, kColumns);
  for (const FieldRow& row : group.rows) {
    if (row.isWide) {
      AddWideRow(grid, row);
    } else {
      AddRow(grid, row);
    }
  }
  if (group.action == 0) return;
  const std::int32_t ids[] = {group.action};
  grid.addWidget(Actions(ids), grid.rowCount(), 0, 1, kColumns);
}

void PagePanel::AddRow(QGridLayout& grid, const FieldRow& row) {
  const int at = grid.rowCount();
  RowWords words = {&row, nullptr, nullptr, nullptr};
  QWidget* const cell = Cell(row, words);
  const bool hasNames = row.label != 0 || row.letter != 0 || row.name.english[0] != '\0';
  if (hasNames) {
    AddNames(grid, row, at, words);
    grid.addWidget(cell, at, kCellColumn);
  } else {
    grid.addWidget(cell, at, 0, 1, kColumns);
  }
  words_.push_back(words);
}

void PagePanel::AddNames(QGridLayout& grid, const FieldRow& row, int at, RowWords& words) {
  QWidget* const form = grid.parentWidget();
  QWidget* const control = WidgetOf(row.control);
  const auto isControl = [&](const Control& known) { return known.id == row.control; };
  const auto known = std::ranges::find_if(*controls_, isControl);
  const bool hasCaption = known != controls_->end() && !known->caption.empty();
  QLabel* first = row.label != 0 ? static_cast<QLabel*>(Take(row.label, form)) : nullptr;
  if (hasCaption) first = words.letter = new QLabel(QString::fromStdString(known->caption), form);
  const bool isLetter = row.letter != 0 || hasCaption;
  if (isLetter) SetFont(*first, Type::kLetter);
  if (first != nullptr) {
    first->setBuddy(control);
    grid.addWidget(first, at, 0, 1, isLetter ? 1 : kCellColumn);
    if (!isLetter) return;
  }
  words.name = new QLabel(form);
  if (first == nullptr) words.name->setBuddy(control);
  grid.addWidget(words.name, at, isLetter ? kNameColumn : 0, 1, isLetter ? 1 : kCellColumn);
  for (QLabel* const companion : {words.letter, words.name}) {
    if (companion != nullptr) Find(row.control)->Accompany(companion);
  }
}

QWidget* PagePanel::Cell(const FieldRow& row, RowWords& words) {
  auto* const cell = new QWidget(this);
  auto* const line = new QHBoxLayout(cell);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kGap);
  QWidget* const control = Take(row.control, cell);
  const bool isNumber = row.unit != Unit::kNone || row.letter != 0 || row.inner != 0;
  if (isNumber) NarrowForNumbers(control);
  const bool fills = !isNumber && KindOf(row.control) != ControlKind::kButton;
  line->addWidget(control, fills ? 1 : 0);
  if (row.inner != 0) {
    // The edit of a spin is a part of its widget.
    control->findChild<QLineEdit*>()->setObjectName(QString::number(row.inner));
  }
  if (row.unit != Unit::kNone || row.letter != 0) {
    words.unit = new QLabel(UnitText(row.unit), cell);
    words.unit->setFixedWidth(words.unit->fontMetrics().horizontalAdvance(UnitText(Unit::kMillimetre)) + 2);
    Find(row.control)->Accompany(words.unit);
    line->addWidget(words.unit);
  }
  if (row.button != 0) line->addWidget(Take(row.button, cell));
  if (!fills) line->addStretch(1);
  return cell;
}

void PagePanel::AddWideRow(QGridLayout& grid, const FieldRow& row) {
  RowWords words = {&row, nullptr, nullptr, nullptr};
  QWidget* const cell = Cell(row, words);
  auto* const label = static_cast<QLabel*>(Take(row.label, grid.parentWidget()));
  label->setBuddy(WidgetOf(row.control));
  grid.addWidget(label, grid.rowCount(), 0, 1, kColumns);
  grid.addWidget(cell, grid.rowCount(), 0, 1, kColumns);
  words_.push_back(words);
}

QWidget* PagePanel::Actions(std::span<const std::int32_t> ids) {
  auto* const box = new QWidget(this);
  auto* const line = new QHBoxLayout(box);
  line->setContentsMargins(0, kGap / 2, 0, 0);
  line->addStretch(1);
  for (const std::int32_t id : ids) line->addWidget(Take(id, box));
  return box;
}

void PagePanel::AddLeftOvers(QGridLayout& grid) {
  const std::vector<std::int32_t> placed = ControlsOf(layout_);
  for (const Control& control : *controls_) {
    const bool isPlaced = std::ranges::find(placed, control.id) != placed.end();
    if (isPlaced || control.kind == ControlKind::kPicture) continue;
    grid.addWidget(Take(control.id, grid.parentWidget()), grid.rowCount(), 0, 1, kColumns);
  }
}

void PagePanel::OrderTabs() {
  QWidget* former = nullptr;
  for (const std::int32_t id : ControlsOf(layout_)) {
    QWidget* const widget = WidgetOf(id);
    if (widget == nullptr || widget->focusPolicy() == Qt::NoFocus) continue;
    if (former != nullptr) setTabOrder(former, widget);
    former = widget;
  }
}

void PagePanel::Show(const std::vector<Control>& controls, const QString& place, std::int32_t focused) {
  if (title_ != nullptr) title_->setText(place);
  for (const Control& control : controls) {
    if (ControlWidget* const widget = Find(control.id)) widget->Show(control);
  }
  const PageValues values(controls);
  ShowWords(values);
  const Control* const picture = values.Find(layout_.picture);
  if (picture != nullptr) picture_->Draw(picture->bitmap, values, focused);
  const int form = std::max(scroll_->widget()->minimumSizeHint().width(), kLeastForm);
  scroll_->setFixedWidth(form + scroll_->verticalScrollBar()->sizeHint().width());
}

void PagePanel::ShowWords(const PageValues& values) {
  const Control* const picture = values.Find(layout_.picture);
  const std::int32_t type = picture == nullptr ? 0 : TypeOfPicture(picture->bitmap);
  for (const RowWords& words : words_) {
    const FieldRow& row = *words.row;
    const LetterWords* const letter = row.letter == 0 ? nullptr : FindLetterWords(type, row.letter);
    const Words& name = row.letter == 0 ? row.name : letter != nullptr ? letter->name : kNotUsed;
    const Unit unit = letter != nullptr ? letter->unit : row.unit;
    if (words.name != nullptr)
      words.name->setText(row.letter != 0 && letter == nullptr ? QString() : Said(name));
    if (words.unit != nullptr) words.unit->setText(UnitText(unit));
    Speak(words, Said(name), unit, values);
  }
}

void PagePanel::Speak(const RowWords& words, const QString& name, Unit unit, const PageValues& values) {
  const FieldRow& row = *words.row;
  const Control* const control = values.Find(row.control);
  if (control == nullptr) return;
  QString spoken = row.label != 0 ? values.TextOf(row.label) : QString::fromStdString(control->caption);
  if (!name.isEmpty()) spoken += (spoken.isEmpty() ? QString() : QStringLiteral(": ")) + name;
  const QString about = spoken;
  if (unit != Unit::kNone) spoken += QStringLiteral(" (") + UnitText(unit) + QLatin1Char(')');
  if (spoken.isEmpty()) return;
  Find(row.control)->SetSpokenName(spoken);
  if (row.inner != 0) WidgetOf(row.control)->findChild<QLineEdit*>()->setAccessibleName(spoken);
  const Control* const button = values.Find(row.button);
  if (button != nullptr)
    Find(row.button)->SetSpokenName(Said(button->text == "..." ? kBrowse : kPick, about));
}

void PagePanel::MarkMnemonics(Mnemonics& mnemonics) {
  // The letters of values come first: what a drawing calls A is reached by A.
  for (const RowWords& words : words_) {
    QLabel* const own = words.letter != nullptr ? words.letter : words.row->label == 0 ? words.name : nullptr;
    if (own != nullptr && own == words.letter)
      own->setText(mnemonics.Mark(own->text().remove(QLatin1Char('&'))));
    if (words.row->letter != 0) Find(words.row->label)->MarkMnemonic(mnemonics);
  }
  for (const RowWords& words : words_) {
    const bool isNamedHere = words.letter == nullptr && words.row->label == 0 && words.name != nullptr;
    if (isNamedHere) words.name->setText(mnemonics.Mark(words.name->text()));
  }
  for (const auto& widget : widgets_) {
    const auto isOfTheWidget = [&](const RowWords& words) {
      return words.row->letter != 0 && words.row->label == widget->Id();
    };
    if (std::ranges::none_of(words_, isOfTheWidget)) widget->MarkMnemonic(mnemonics);
  }
}

QWidget* PagePanel::WidgetOf(std::int32_t control) const {
  const ControlWidget* const widget = Find(control);
  if (widget != nullptr) return widget->Widget();
  return control == 0 ? nullptr : findChild<QWidget*>(QString::number(control));
}

ControlWidget* PagePanel::Find(std::int32_t id) const {
  const auto widget = std::ranges::find(widgets_, id, &ControlWidget::Id);
  return widget == widgets_.end() ? nullptr : widget->get();
}

ControlKind PagePanel::KindOf(std::int32_t id) const {
  const auto control = std::ranges::find(*controls_, id, &Control::id);
  return control == controls_->end() ? ControlKind::kLabel : control->kind;
}

QWidget* PagePanel::Take(std::int32_t id, QWidget* parent) {
  const auto control = std::ranges::find(*controls_, id, &Control::id);
  if (control == controls_->end()) return new QLabel(parent);
  widgets_.push_back(MakeControlWidget(*control, send_, parent));
  return widgets_.back()->Widget();
}

}  // namespace vanzet::view::qt
