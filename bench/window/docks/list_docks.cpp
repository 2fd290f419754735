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
  const auto retranslate = [this, &texts] {
    setWindowTitle(texts(Text::kLayers)), list_->setAccessibleName(windowTitle());
  };
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
    auto* const item = new QListWidgetItem(SwatchOf(OnGround(QColor(ToQString(pen.colour->svg)), palette())),
                                           ToQString(name), list_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
    item->setCheckState(off.contains(item->text()) ? Qt::Unchecked : Qt::Checked);
  }
}

ChoiceDock::ChoiceDock(QWidget* parent) : QDockWidget(parent), list_(new QListWidget) {
  setObjectName("choice");
  setFeatures(DockWidgetMovable);
  setWidget(list_);
  connect(list_, &QListWidget::currentTextChanged, this, &ChoiceDock::Marked);
  // The first name can be the current one already, and then a click changes nothing.
  connect(list_, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { emit Marked(item->text()); });
  connect(list_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { emit Chosen(item->text()); });
  hide();
}

void ChoiceDock::Offer(const QString& title, const QStringList& names) {
  setWindowTitle(title);
  list_->setAccessibleName(title);
  list_->clear();
  list_->addItems(names);
  list_->setCurrentRow(-1);
  show();
}

}  // namespace vanzet::window
