#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "view/qt/icons.h"
#include "view/qt/labels.h"
#include "view/qt/page_form.h"
#include "view/qt/texts.h"

/// The layout of a form: groups under titles, and in them rows of names and cells.
namespace vanzet::view::qt {
namespace {

constexpr const char* kChooser = Translatable("Choose from pictures (Ctrl+F)");
constexpr const char* kFileChooser = Translatable("Choose from files with pictures (Ctrl+Shift+F)");

constexpr int kGap = 8;
constexpr int kGroupGap = 16;

/// Columns of a form.
enum Column { kLetterColumn, kNameColumn, kCellColumn, kColumns };

/// How wide an edit for a number is, in digits: all of a number, its sign and its point.
constexpr int kDigits = 16;

void NarrowForNumbers(QWidget* edit) {
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kDigits + 2 * kGap);
}

QFrame* Line(QWidget* parent) {
  auto* const line = new QFrame(parent);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  return line;
}

bool IsNumber(const FieldRow& field) {
  return field.unit != Unit::kNone || field.letter != 0 || field.inner != 0;
}

}  // namespace

PageForm::PageForm(const PageLayout& layout, const std::vector<Control>& controls, Send send, QWidget* parent)
    : QWidget(parent), layout_(layout), send_(std::move(send)), controls_(&controls) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, kGap, 0);
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap * 3 / 4);
  grid->setColumnStretch(kCellColumn, 1);
  for (const FieldGroup& group : layout_.groups) AddGroup(*grid, group);
  AddLeftOvers(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
}

void PageForm::AddGroup(QGridLayout& grid, const FieldGroup& group) {
  if (grid.count() > 0) grid.setRowMinimumHeight(grid.rowCount(), kGroupGap);
  QWidget* const title =
      group.titleLabel != 0 ? MakeWidget(group.titleLabel, this) : new QLabel(Translate(group.title), this);
  SetFont(*title, TextRank::kGroup);
  grid.addWidget(title, grid.rowCount(), 0, 1, kColumns);
  grid.addWidget(Line(this), grid.rowCount(), 0, 1, kColumns);
  for (const FieldRow& field : group.rows) {
    if (field.isWide) {
      AddWideRow(grid, field);
    } else {
      AddRow(grid, field);
    }
  }
  if (group.action == 0) return;
  const std::int32_t ids[] = {group.action};
  grid.addWidget(MakeActions(ids, this), grid.rowCount(), 0, 1, kColumns);
}

void PageForm::AddRow(QGridLayout& grid, const FieldRow& field) {
  const int at = grid.rowCount();
  Row row = {&field};
  QWidget* const cell = Cell(row);
  const bool hasNames = field.label != 0 || field.name[0] != '\0';
  if (hasNames) AddNames(grid, at, row);
  grid.addWidget(cell, at, hasNames ? kCellColumn : 0, 1, hasNames ? 1 : kColumns);
  rows_.push_back(row);
}

void PageForm::AddWideRow(QGridLayout& grid, const FieldRow& field) {
  Row row = {&field};
  QWidget* const cell = Cell(row);
  auto* const label = qobject_cast<QLabel*>(MakeWidget(field.label, this));
  label->setBuddy(WidgetOf(field.control));
  grid.addWidget(label, grid.rowCount(), 0, 1, kColumns);
  grid.addWidget(cell, grid.rowCount(), 0, 1, kColumns);
  rows_.push_back(row);
}

void PageForm::AddNames(QGridLayout& grid, int at, Row& row) {
  const FieldRow& field = *row.field;
  const auto control = std::ranges::find(*controls_, field.control, &Control::id);
  const bool hasCaption = control != controls_->end() && !control->caption.empty();
  if (hasCaption) row.caption = new QLabel(QString::fromStdString(control->caption), this);
  QLabel* const first = hasCaption         ? row.caption
                        : field.label != 0 ? qobject_cast<QLabel*>(MakeWidget(field.label, this))
                                           : nullptr;
  if (first == nullptr) return AddName(grid, at, row, false);
  first->setBuddy(WidgetOf(field.control));
  if (field.sign[0] != '\0') return AddSign(grid, at, row, first);
  const bool isLetter = hasCaption || field.letter != 0;
  grid.addWidget(first, at, kLetterColumn, 1, isLetter ? 1 : kCellColumn);
  if (!isLetter) return;
  SetFont(*first, TextRank::kLetter);
  if (hasCaption) Find(field.control)->Accompany(first);
  AddName(grid, at, row, true);
}

void PageForm::AddName(QGridLayout& grid, int at, Row& row, bool isAfterLetter) {
  row.name = new QLabel(this);
  if (!isAfterLetter) row.name->setBuddy(WidgetOf(row.field->control));
  grid.addWidget(row.name, at, isAfterLetter ? kNameColumn : 0, 1, isAfterLetter ? 1 : kCellColumn);
  Find(row.field->control)->Accompany(row.name);
}

/// Places a label after the sign that its value has in the picture.
void PageForm::AddSign(QGridLayout& grid, int at, Row& row, QLabel* label) {
  auto* const sign = new QLabel(QString::fromUtf8(row.field->sign), this);
  SetFont(*sign, TextRank::kLetter);
  Find(row.field->control)->Accompany(sign);
  grid.addWidget(sign, at, kLetterColumn);
  grid.addWidget(label, at, kNameColumn);
}

QWidget* PageForm::Cell(Row& row) {
  const FieldRow& field = *row.field;
  auto* const cell = new QWidget(this);
  auto* const line = new QHBoxLayout(cell);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kGap);
  QWidget* const control = MakeWidget(field.control, cell);
  if (IsNumber(field)) NarrowForNumbers(control);
  const bool fills = !IsNumber(field) && control->sizePolicy().horizontalPolicy() != QSizePolicy::Minimum;
  line->addWidget(control, fills ? 1 : 0);
  // The edit of a spin is a part of its widget.
  if (field.inner != 0) control->findChild<QLineEdit*>()->setObjectName(QString::number(field.inner));
  if (field.hasChooser) AddChooser(row, cell);
  AddNeeded(row, cell);
  AddUnit(row, cell);
  // A hidden row leaves no gap.
  Find(field.control)->Accompany(cell);
  if (field.button != 0) line->addWidget(MakeWidget(field.button, cell));
  if (!fills) line->addStretch(1);
  return cell;
}

void PageForm::AddUnit(Row& row, QWidget* cell) {
  if (row.field->unit == Unit::kNone && row.field->letter == 0) return;
  row.unit = new QLabel(QString::fromStdString(UnitText(row.field->unit)), cell);
  row.unit->setFixedWidth(
      row.unit->fontMetrics().horizontalAdvance(QString::fromStdString(UnitText(Unit::kMillimetre))) + 2);
  Find(row.field->control)->Accompany(row.unit);
  cell->layout()->addWidget(row.unit);
}

void PageForm::AddChooser(const Row& row, QWidget* cell) {
  ControlWidget* const list = Find(row.field->control);
  auto* const button = new QToolButton(cell);
  button->setIcon(IconOf("search"));
  const bool isOfFiles = row.field->isWide;
  button->setObjectName(QLatin1String(isOfFiles ? "fileChooser" : "chooser"));
  button->setAccessibleName(Translate(isOfFiles ? kFileChooser : kChooser));
  button->setToolTip(button->accessibleName());
  button->setFocusPolicy(Qt::NoFocus);
  list->Accompany(button);
  connect(button, &QToolButton::clicked, this, [list] { list->OpenChooser(); });
  cell->layout()->addWidget(button);
}

void PageForm::AddNeeded(Row& row, QWidget* cell) {
  // Numbers that are not needed keep the place free, so that the buttons after them are below each other.
  if (!row.field->isNeeded && !IsNumber(*row.field)) return;
  row.needed = new QLabel(cell);
  row.needed->setFixedWidth(row.needed->fontMetrics().horizontalAdvance(QLatin1String(kNeededSign)) + 2);
  cell->layout()->addWidget(row.needed);
}

void PageForm::AddLeftOvers(QGridLayout& grid) {
  for (const std::int32_t id : LeftOversOf(layout_, *controls_))
    grid.addWidget(MakeWidget(id, this), grid.rowCount(), 0, 1, kColumns);
}

QWidget* PageForm::MakeWidget(std::int32_t id, QWidget* parent) {
  const auto control = std::ranges::find(*controls_, id, &Control::id);
  if (control == controls_->end()) return new QLabel(parent);
  widgets_.push_back(MakeControlWidget(*control, send_, parent));
  return widgets_.back()->Widget();
}

QWidget* PageForm::MakeActions(std::span<const std::int32_t> ids, QWidget* parent) {
  auto* const box = new QWidget(parent);
  auto* const line = new QHBoxLayout(box);
  line->setContentsMargins(0, kGap / 2, 0, 0);
  line->addStretch(1);
  for (const std::int32_t id : ids) line->addWidget(MakeWidget(id, box));
  return box;
}

}  // namespace vanzet::view::qt
