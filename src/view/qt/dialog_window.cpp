#include "view/qt/dialog_window.h"

#include <QApplication>
#include <QEventLoop>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "view/ids.h"
#include "view/qt/empty_panel.h"
#include "view/qt/page_panel.h"
#include "view/qt/texts.h"
#include "view/qt/tree_panel.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kSpurName = Translatable("Spindle whose equipment is shown");

constexpr const char* kSpur = Translatable("Spindle");

constexpr int kMargin = 12;
constexpr int kTreeWidth = 300;
constexpr QSize kFirstSize = {1180, 740};

QSettings Settings() {
  return QSettings(QStringLiteral("vanzet"), QStringLiteral("equipment-definition"));
}

/// A line of text that takes the width that is there.
QLabel* NewLine(QWidget* parent) {
  auto* const line = new QLabel(parent);
  line->setObjectName(QStringLiteral("line"));
  line->setTextFormat(Qt::PlainText);
  line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return line;
}

}  // namespace

DialogWindow::DialogWindow(Dialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog), send_([this](const auto& event) { Perform(event); }) {
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
  setSizeGripEnabled(true);
  Build(dialog.State());
  RestoreSize();
  Show(dialog.State());
  connect(qApp, &QApplication::focusChanged, this, [this] { FocusMoved(); });
}

DialogWindow::~DialogWindow() {
  // While the base class is destroyed the focus moves, and there is nothing left to show it on.
  disconnect(qApp, nullptr, this, nullptr);
  RememberSize();
}

void DialogWindow::Build(const DialogState& state) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  rows->setSpacing(kMargin);
  splitter_ = new QSplitter(this);
  splitter_->setChildrenCollapsible(false);
  splitter_->setHandleWidth(kMargin);
  splitter_->addWidget(BuildLeft(state));
  stack_ = new QStackedWidget(splitter_);
  empty_ = new EmptyPanel(send_, stack_);
  stack_->addWidget(empty_);
  splitter_->addWidget(stack_);
  splitter_->setStretchFactor(1, 1);
  rows->addWidget(splitter_, 1);
  rows->addWidget(BuildButtons(state));
}

QWidget* DialogWindow::BuildLeft(const DialogState& state) {
  auto* const left = new QWidget(splitter_);
  auto* const rows = new QVBoxLayout(left);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kMargin / 2);
  tree_ = new TreePanel(send_, left);
  rows->addWidget(tree_, 1);
  for (const Control& control : state.dialog) {
    if (control.id != control::kSpurs) continue;
    QWidget* const spurs = MakeWidget(control, left);
    spurs->setAccessibleName(Translate(kSpurName));
    spurs->setToolTip(Translate(kSpurName));
    auto* const line = new QHBoxLayout;
    line->addWidget(spurLabel_ = new QLabel(Translate(kSpur), left));
    line->addWidget(spurs, 1);
    rows->addLayout(line);
    // On some displays a list has its name from the label that belongs to it.
    spurLabel_->setBuddy(spurs);
  }
  return left;
}

QWidget* DialogWindow::BuildButtons(const DialogState& state) {
  auto* const bar = new QWidget(this);
  auto* const line = new QHBoxLayout(bar);
  line->setContentsMargins(0, 0, 0, 0);
  // The other controls of the state are never visible, but they have widgets.
  for (const Control& control : state.dialog) {
    if (control.id == control::kSpurs) continue;
    // OK and the buttons after it are at the right end.
    if (control.id == control::kOk) line->addWidget(line_ = NewLine(bar), 1);
    line->addWidget(MakeWidget(control, bar));
  }
  for (QPushButton* const button : bar->findChildren<QPushButton*>()) {
    button->setAutoDefault(false);
    button->setDefault(button == WidgetOf(control::kOk));
  }
  return bar;
}

QWidget* DialogWindow::MakeWidget(const Control& control, QWidget* parent) {
  widgets_.push_back(MakeControlWidget(control, send_, parent));
  return widgets_.back()->Widget();
}

void DialogWindow::Run() {
  QEventLoop loop;
  leave_ = [&loop] { loop.quit(); };
  connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
  const QPointer<DialogWindow> self(this);
  show();
  tree_->setFocus();
  loop.exec();
  if (self) leave_ = nullptr;
}

void DialogWindow::Perform(const std::function<void(Dialog&)>& event) {
  const QPointer<DialogWindow> self(this);
  event(dialog_);
  if (!self) return;
  if (dialog_.IsOpen()) {
    Show(dialog_.State());
  } else if (leave_) {
    leave_();
  }
}

void DialogWindow::Show(const DialogState& state) {
  setWindowTitle(QString::fromStdString(state.caption));
  tree_->Show(state);
  for (const auto& widget : widgets_) {
    const auto control = std::ranges::find(state.dialog, widget->Id(), &Control::id);
    if (control != state.dialog.end()) widget->Show(*control);
  }
  ShowPage(state);
  OrderTabs();
  PublishHelp();
  spurLabel_->setVisible(WidgetOf(control::kSpurs)->isVisibleTo(this));
  PublishPage(state);
  ShowUnstored(state);
  ShowMnemonics();
}

void DialogWindow::ShowPage(const DialogState& state) {
  const PageLayout* const layout = FindPageLayout(state.page);
  if (layout == nullptr) {
    page_ = nullptr;
    empty_->Show(state);
    stack_->setCurrentWidget(empty_);
    return;
  }
  PagePanel*& page = pages_[state.page];
  if (page == nullptr) {
    page = new PagePanel(*layout, state.controls, send_, stack_);
    stack_->addWidget(page);
  }
  page_ = page;
  page->Show(state.controls, QString::fromStdString(PlaceInTree(state)), FocusedControl());
  stack_->setCurrentWidget(page);
}

void DialogWindow::OrderTabs() {
  std::vector<QWidget*> chain = {tree_, WidgetOf(control::kSpurs)};
  const std::vector<QWidget*> beside = page_ != nullptr ? page_->TabChain() : empty_->TabChain();
  chain.insert(chain.end(), beside.begin(), beside.end());
  for (const std::int32_t id : {control::kLoad, control::kSave, control::kOk, control::kHelp})
    chain.push_back(WidgetOf(id));
  for (std::size_t i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

/// A host that uses Qt finds the page of help for what is in front in a property of the window.
void DialogWindow::PublishHelp() {
  const QString heading = page_ == nullptr ? QString() : QLatin1Char('#') + QLatin1String(page_->Help());
  setProperty("helpPage", QStringLiteral("guide/pages.md") + heading);
}

void DialogWindow::ShowUnstored(const DialogState& state) {
  unstored_.Follow(state);
  if (page_ != nullptr) page_->MarkUnstored(state.unstored);
  line_->setText(QString::fromStdString(unstored_.Text()));
  line_->setToolTip(line_->text());
  // For a host that uses Qt.
  setProperty("unstored", QString::fromStdString(unstored_.Names()));
}

/// Such a host finds the values of the page in another property, and can show them before they are stored.
void DialogWindow::PublishPage(const DialogState& state) {
  QVariantMap values;
  for (const Control& control : state.controls) {
    if (!control.isVisible) continue;
    const QString id = QString::number(control.id);
    if (control.kind == ControlKind::kSpin) values[id] = control.value;
    if (control.kind == ControlKind::kCheck) values[id] = control.isChecked;
    const bool isText = control.kind == ControlKind::kEdit || control.kind == ControlKind::kCombo;
    if (isText && !control.isReal) values[id] = QString::fromStdString(control.text);
    if (isText && control.isReal && control.number) values[id] = *control.number;
  }
  const QVariantMap page = {{"node", state.selectedNode},
                            {"deviceType", state.deviceType},
                            {"spur", state.spur},
                            {"isStored", state.unstored.empty()},
                            {"values", values}};
  if (property("page").toMap() != page) setProperty("page", page);
}

void DialogWindow::ShowMnemonics() {
  Mnemonics mnemonics;
  mnemonics.Reserve(kValueLetters);
  for (const auto& widget : widgets_) widget->MarkMnemonic(mnemonics);
  if (page_ != nullptr) page_->MarkMnemonics(mnemonics);
}

void DialogWindow::FocusMoved() {
  if (page_ == nullptr || !dialog_.IsOpen()) return;
  const DialogState& state = dialog_.State();
  page_->Show(state.controls, QString::fromStdString(PlaceInTree(state)), FocusedControl());
  ShowMnemonics();
}

std::int32_t DialogWindow::FocusedControl() const {
  const QWidget* const widget = focusWidget();
  return widget == nullptr ? 0 : widget->objectName().toInt();
}

void DialogWindow::Hide() {
  hiddenAt_ = pos();
  hide();
  // The host may not run Qt's events while the user works in its window.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DialogWindow::ShowAgain() {
  show();
  move(hiddenAt_);
  raise();
  activateWindow();
}

void DialogWindow::FocusOn(std::int32_t control) {
  QWidget* const widget = control == control::kTree ? tree_ : WidgetOf(control);
  if (widget == nullptr) return;
  widget->setFocus(Qt::OtherFocusReason);
  // A box may have left the keyboard with another window.
  if (isVisible() && !isActiveWindow()) activateWindow();
  if (page_ != nullptr) page_->Reveal(control);
  // A refused value is to be typed again, so it is marked even where the dialog does not ask for it.
  if (auto* const edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
}

std::optional<std::int32_t> DialogWindow::Popup(std::int32_t node, const std::vector<PopupEntry>& entries) {
  return tree_->Popup(node, entries);
}

QWidget* DialogWindow::WidgetOf(std::int32_t control) const {
  const auto own = std::ranges::find(widgets_, control, &ControlWidget::Id);
  if (own != widgets_.end()) return (*own)->Widget();
  return page_ == nullptr ? nullptr : page_->WidgetOf(control);
}

void DialogWindow::reject() {
  Perform([](Dialog& dialog) { dialog.Close(); });
}

/// The button that a key presses; null for another key, and on a page without such a list.
QToolButton* DialogWindow::ChooserFor(const QKeyEvent& event) const {
  if (event.key() != Qt::Key_F || page_ == nullptr) return nullptr;
  if (event.modifiers() == Qt::ControlModifier)
    return page_->findChild<QToolButton*>(QStringLiteral("chooser"));
  const bool isOfFiles = event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
  return isOfFiles ? page_->findChild<QToolButton*>(QStringLiteral("fileChooser")) : nullptr;
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  if (QToolButton* const chooser = ChooserFor(*event)) return chooser->click();
  if (event->key() == Qt::Key_F1) return Perform([](Dialog& dialog) { dialog.Press(control::kHelp); });
  auto* const pick = qobject_cast<QPushButton*>(
      event->key() == Qt::Key_F4 && page_ != nullptr ? page_->PickButtonOf(FocusedControl()) : nullptr);
  if (pick != nullptr) return pick->click();
  QDialog::keyPressEvent(event);
}

void DialogWindow::RestoreSize() {
  const QSettings settings = Settings();
  resize(kFirstSize.boundedTo(screen()->availableSize()));
  restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
  splitter_->setSizes({kTreeWidth, kFirstSize.width() - kTreeWidth});
  splitter_->restoreState(settings.value(QStringLiteral("splitter")).toByteArray());
}

void DialogWindow::RememberSize() {
  QSettings settings = Settings();
  settings.setValue(QStringLiteral("geometry"), saveGeometry());
  settings.setValue(QStringLiteral("splitter"), splitter_->saveState());
}

}  // namespace vanzet::view::qt
