#include "window/catalogue/device_panel.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>
#include <QTableWidget>
#include <QVBoxLayout>

#include "catalogue/picture.h"
#include "window/catalogue/device_model.h"
#include "window/catalogue/device_picture.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr QSize kPicture = {360, 270};
constexpr std::size_t kMost = 2;

QPixmap PixmapOf(const std::string& svg, const QWidget& where) {
  QPixmap pixmap(kPicture * where.devicePixelRatio());
  pixmap.setDevicePixelRatio(where.devicePixelRatio());
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QSvgRenderer(InColoursOf(where.palette(), svg).toUtf8()).render(&painter, QRectF(QPointF(0, 0), kPicture));
  return pixmap;
}

QLabel* AddLabel(QVBoxLayout& rows) {
  auto* const label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  rows.addWidget(label);
  return label;
}

}  // namespace

DevicePanel::DevicePanel(const Texts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts), values_(new QTableWidget(0, 3)) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(values_);
  same_ = AddLabel(*rows);
  first_ = AddLabel(*rows);
  second_ = AddLabel(*rows);
  rows->addStretch(1);
  values_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  values_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  values_->setWordWrap(false);
  // The letter of a value is at the end of its name.
  values_->setTextElideMode(Qt::ElideMiddle);
  values_->verticalHeader()->hide();
  values_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  values_->setTabKeyNavigation(false);
  setFixedWidth(kPicture.width());
  connect(&texts_, &Texts::Changed, this, &DevicePanel::Draw);
  Draw();
}

void DevicePanel::Show(const DeviceModel& model, const std::vector<std::string>& names) {
  devices_.clear();
  for (const std::string& name : names) {
    if (devices_.size() < kMost) devices_.push_back(*model.shop().catalogue.Find(name));
  }
  Compare(model);
  Draw();
}

/// Shows the values that one of both devices has.
void DevicePanel::Compare(const DeviceModel& model) {
  values_->setRowCount(0);
  const bool areTwo = devices_.size() == kMost;
  values_->setVisible(areTwo);
  same_->hide();
  if (!areTwo) return;
  const auto &first = devices_[0], &second = devices_[1];
  values_->setHorizontalHeaderLabels({QString(), ToQString(first.name), ToQString(second.name)});
  bool areSame = true;
  for (int column = DeviceModel::kKind; column < model.columnCount(); ++column) {
    const QString before = model.TextOf(first, column), now = model.TextOf(second, column);
    const QString name = model.NameOf(before.isEmpty() ? second : first, column);
    if (!before.isEmpty() || !now.isEmpty()) AddRow(name, before, now);
    areSame = areSame && before == now;
  }
  same_->setText(texts_(Text::kSameDevices));
  same_->setVisible(areSame);
  FitHeight();
}

void DevicePanel::AddRow(const QString& name, const QString& first, const QString& second) {
  const int row = values_->rowCount();
  values_->insertRow(row);
  QFont font = values_->font();
  font.setBold(first != second);
  int column = 0;
  for (const QString& text : {name, first, second}) {
    auto* const item = new QTableWidgetItem(text);
    item->setFont(font);
    item->setToolTip(text);
    values_->setItem(row, column++, item);
  }
}

/// The panel scrolls, not the table in it.
void DevicePanel::FitHeight() {
  values_->setFixedHeight(values_->verticalHeader()->length() +
                          values_->horizontalHeader()->sizeHint().height() + 2 * values_->frameWidth());
}

void DevicePanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && first_ != nullptr) Draw();
}

/// A device that has no outline says why in the place of its picture.
void DevicePanel::Draw() {
  QLabel* const labels[] = {first_, second_};
  for (std::size_t i = 0; i < kMost; ++i) {
    labels[i]->setVisible(i == 0 || i < devices_.size());
    if (i >= devices_.size()) {
      labels[i]->setText(texts_(Text::kChooseDevices));
      continue;
    }
    const auto svg = catalogue::PictureOf(devices_[i]);
    // A picture in a label that breaks lines makes it as high as if it were text.
    labels[i]->setWordWrap(!svg);
    if (svg) {
      labels[i]->setPixmap(PixmapOf(*svg, *this));
    } else {
      labels[i]->setText(ToQString(svg.fault().Message()));
    }
    labels[i]->setAccessibleName(ToQString(devices_[i].name));
  }
}

}  // namespace vanzet::window
