#include "window/views/bars.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace vanzet::window {
namespace {

constexpr int kEditWidth = 220;  // pixels

/// The layout of a line across the window.
QHBoxLayout* LayOutBar(QFrame& bar) {
  auto* const layout = new QHBoxLayout(&bar);
  layout->setContentsMargins(12, 4, 6, 4);
  return layout;
}

}  // namespace

ViewPane::ViewPane(QWidget* view, QWidget* parent) : QFrame(parent), title_(new QLabel) {
  setObjectName("viewPane");
  auto* const header = new QWidget;
  header->setObjectName("viewHeader");
  header_ = new QHBoxLayout(header);
  header_->setContentsMargins(10, 2, 4, 2);
  header_->setSpacing(2);
  header_->addWidget(title_);
  header_->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->setSpacing(0);
  layout->addWidget(header);
  layout->addWidget(view, 1);
}

void ViewPane::SetTitle(const QString& title) {
  title_->setText(title);
}

void ViewPane::Add(QWidget* control) {
  header_->addWidget(control);
}

void ViewPane::Add(QAction* action) {
  auto* const button = new QToolButton;
  button->setDefaultAction(action);
  button->setAutoRaise(true);
  header_->addWidget(button);
}

HintBar::HintBar(QWidget* parent)
    : QFrame(parent), text_(new QLabel), edit_(new QLineEdit), cancel_(new QPushButton) {
  setObjectName("hintBar");
  auto* const layout = LayOutBar(*this);
  text_->setTextFormat(Qt::PlainText);
  // A long question must not make a window wider that has made room for the dialog.
  text_->setWordWrap(true);
  edit_->setFixedWidth(kEditWidth);
  layout->addWidget(text_, 1);
  layout->addWidget(edit_);
  layout->addWidget(cancel_);
  connect(edit_, &QLineEdit::returnPressed, this, [this] { emit Typed(edit_->text()); });
  connect(cancel_, &QPushButton::clicked, this, &HintBar::Cancelled);
  hide();
}

void HintBar::Ask(const QString& text, const QString& button, const QString& typed) {
  text_->setText(text);
  cancel_->setText(button);
  edit_->clear();
  edit_->setPlaceholderText(typed);
  edit_->setAccessibleName(typed);
  edit_->setVisible(!typed.isEmpty());
  show();
}

void HintBar::Refuse(const QString& why) {
  text_->setText(why);
  edit_->selectAll();
}

void HintBar::TakeFocus() {
  edit_->setFocus();
}

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), text_(new QLabel), close_(new QToolButton) {
  setObjectName("noticeBar");
  auto* const layout = LayOutBar(*this);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  close_->setText(QString::fromUtf8("\u2715"));
  close_->setAutoRaise(true);
  layout->addWidget(text_, 1);
  layout->addWidget(close_);
  connect(close_, &QToolButton::clicked, this, &QWidget::hide);
  hide();
}

void NoticeBar::SetCloseName(const QString& name) {
  close_->setAccessibleName(name);
  close_->setToolTip(name);
}

void NoticeBar::SetMessage(const QString& text) {
  text_->setText(text);
  setVisible(!text.isEmpty());
}

QString NoticeBar::Message() const {
  return isHidden() ? QString() : text_->text();
}

}  // namespace vanzet::window
