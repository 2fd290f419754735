#include "window/catalogue/device_panel.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "catalogue/comparison.h"
#include "catalogue/picture.h"
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

DevicePanel::DevicePanel(const Texts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  first_ = AddLabel(*rows);
  second_ = AddLabel(*rows);
  differences_ = AddLabel(*rows);
  differences_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  rows->addStretch(1);
  setFixedWidth(kPicture.width());
  connect(&texts_, &Texts::Changed, this, &DevicePanel::Draw);
  Draw();
}

void DevicePanel::Show(const catalogue::Shop& shop, const std::vector<std::string>& names) {
  devices_.clear();
  for (const std::string& name : names) {
    if (devices_.size() < kMost) devices_.push_back(*shop.catalogue.Find(name));
  }
  QStringList lines;
  if (devices_.size() == kMost) {
    lines << ToQString(devices_[0].name + " -> " + devices_[1].name);
    for (const std::string& change : catalogue::DeviceChanges(shop, devices_[0].name, shop, devices_[1].name))
      lines << ToQString(change);
    if (lines.size() == 1) lines << texts_(Text::kSameDevices);
  }
  differences_->setText(lines.join('\n'));
  Draw();
}

QString DevicePanel::Differences() const {
  return differences_->text();
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
