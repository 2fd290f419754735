#include "window/docks/list_docks.h"

#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>
#include <set>

#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

QIcon SwatchOf(const QColor& colour) {
  QPixmap swatch(24, 24);
  swatch.fill(Qt::transparent);
  QPainter painter(&swatch);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRoundedRect(QRectF(4, 4, 16, 16), 4, 4);
  return QIcon(swatch);
}

}  // namespace

LayerDock::LayerDock(const Texts& texts, QWidget* parent) : QDockWidget(parent), list_(new QListWidget) {
  setObjectName("layers");
  setWidget(list_);
  connect(list_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    emit LayerSwitched(item->text(), item->checkState() == Qt::Checked);
  });
  const auto retranslate = [this, &texts] { setWindowTitle(texts(Text::kLayers)); };
  connect(&texts, &Texts::Changed, this, retranslate);
  retranslate();
}

void LayerDock::Show(const drawing::Drawing& drawing) {
  std::set<QString> off;
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->checkState() == Qt::Unchecked) off.insert(list_->item(row)->text());
  }
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (const auto& [name, pen] : drawing.layers) {
    auto* const item = new QListWidgetItem(SwatchOf(OnGround(QColor(Shown(pen.colour->svg)), palette())),
                                           Shown(name), list_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
    item->setCheckState(off.contains(item->text()) ? Qt::Unchecked : Qt::Checked);
  }
}

}  // namespace vanzet::window
