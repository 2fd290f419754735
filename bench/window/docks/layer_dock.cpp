#include "window/docks/layer_dock.h"

#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>

#include "window/definition_words.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr int kNameRole = Qt::UserRole, kPartRole = Qt::UserRole + 1;

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

LayerDock::LayerDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent), texts_(texts), list_(new QListWidget) {
  setObjectName("layers");
  setWidget(list_);
  connect(list_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    const bool isPart = item->data(kPartRole).toBool(), isOn = item->checkState() == Qt::Checked;
    const QString name = item->data(kNameRole).toString();
    if (isOn) {
      off_.erase({isPart, name});
    } else {
      off_.insert({isPart, name});
    }
    emit(this->*(isPart ? &LayerDock::PartSwitched : &LayerDock::LayerSwitched))(name, isOn);
  });
  const auto retranslate = [this] {
    setWindowTitle(texts_(Text::kLayers)), list_->setAccessibleName(windowTitle());
    List();
  };
  connect(&texts, &Texts::Changed, this, retranslate);
  retranslate();
}

void LayerDock::Show(const drawing::Drawing& drawing) {
  layers_.clear();
  for (const auto& [name, pen] : drawing.layers)
    layers_[ToQString(name)] = QColor(ToQString(pen.colour->svg));
  List();
}

void LayerDock::ShowParts(std::vector<SectionPart> parts) {
  parts_ = std::move(parts);
  List();
}

void LayerDock::List() {
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (const auto& [name, colour] : layers_) Add(name, name, colour, false);
  for (const SectionPart& part : parts_) Add(TextOf(part), ToQString(part.name), part.colour, true);
}

void LayerDock::Add(const QString& text, const QString& name, const QColor& colour, bool isPart) {
  auto* const item = new QListWidgetItem(SwatchOf(OnGround(colour, palette())), text, list_);
  item->setData(kNameRole, name);
  item->setData(kPartRole, isPart);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
  item->setCheckState(off_.contains({isPart, name}) ? Qt::Unchecked : Qt::Checked);
}

QString LayerDock::TextOf(const SectionPart& part) const {
  if (part.name == kDatumPart) return texts_(Text::kDatum);
  if (part.name == kDimensionPart) return texts_(Text::kDimensions);
  return BodyText(texts_.translations(), ToQString(part.name));
}

}  // namespace vanzet::window
