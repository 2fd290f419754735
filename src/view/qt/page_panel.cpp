#include "view/qt/page_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "view/qt/labels.h"
#include "view/qt/page_form.h"
#include "view/qt/picture_widget.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr int kGap = 8;
constexpr int kLeastForm = 340;

}  // namespace

PagePanel::PagePanel(const PageLayout& layout, const std::vector<Control>& controls, const Send& send,
                     QWidget* parent)
    : QWidget(parent),
      layout_(layout),
      form_(new PageForm(layout, controls, send, this)),
      picture_(new PictureWidget(Translate(layout.noPicture), this)) {
  picture_->setObjectName(QString::number(layout.picture));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kGap);
  rows->addWidget(MakeTitle());
  auto* const middle = new QHBoxLayout;
  middle->setSpacing(2 * kGap);
  middle->addWidget(MakeScrollArea());
  middle->addWidget(picture_, 1);
  rows->addLayout(middle, 1);
  if (!layout.actions.empty()) rows->addWidget(form_->MakeActions(layout.actions, this));
  form_->Finish();
}

QWidget* PagePanel::MakeTitle() {
  QWidget* const title =
      layout_.header != 0 ? form_->MakeWidget(layout_.header, this) : title_ = new QLabel(this);
  SetFont(*title, TextRank::kTitle);
  return title;
}

QWidget* PagePanel::MakeScrollArea() {
  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidget(form_);
  // A form has the background of a window, not that of a list.
  scroll_->viewport()->setAutoFillBackground(false);
  form_->setAutoFillBackground(false);
  return scroll_;
}

void PagePanel::Show(const std::vector<Control>& controls, const QString& place, std::int32_t focused) {
  const PageValues values(controls);
  const Control* const picture = values.Find(layout_.picture);
  const std::int32_t bitmap = picture == nullptr ? 0 : picture->bitmap;
  if (title_ != nullptr) title_->setText(place);
  form_->Show(controls);
  const auto* const edit = qobject_cast<const QLineEdit*>(form_->WidgetOf(focused));
  picture_->Draw(bitmap, values,
                 {focused, edit != nullptr ? edit->text() : QString::fromStdString(values.TextOf(focused))});
  form_->ShowFaults(picture_->ShownSketch());
  const int width = std::max(form_->minimumSizeHint().width(), kLeastForm);
  scroll_->setFixedWidth(width + scroll_->verticalScrollBar()->sizeHint().width());
}

void PagePanel::MarkMnemonics(Mnemonics& mnemonics) {
  if (!form_->HasLetters()) mnemonics.Release(kValueLetters);
  form_->MarkMnemonics(mnemonics);
}

void PagePanel::MarkUnstored(const std::vector<std::int32_t>& unstored) {
  const auto stores = StoringButtons(layout_, unstored);
  for (const std::int32_t action : ActionsOf(layout_))
    form_->MarkUnstored(action, std::ranges::find(stores, action) != stores.end());
}

void PagePanel::Reveal(std::int32_t control) {
  QWidget* const widget = form_->WidgetOf(control);
  if (widget != nullptr && form_->isAncestorOf(widget)) scroll_->ensureWidgetVisible(widget);
}

std::vector<QWidget*> PagePanel::TabChain() const {
  return form_->TabChain();
}

QWidget* PagePanel::PickButtonOf(std::int32_t edit) const {
  return form_->WidgetOf(view::PickButtonOf(layout_, edit));
}

QWidget* PagePanel::WidgetOf(std::int32_t control) const {
  if (control == layout_.picture && control != 0) return picture_;
  return form_->WidgetOf(control);
}

}  // namespace vanzet::view::qt
