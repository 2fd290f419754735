#include "window/docks/body_dock.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidget>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kNameWidth = 220;  // pixels

/// The columns with boxes.
enum Column { kShown, kSeenThrough };

Qt::CheckState StateOf(bool isOn) {
  return isOn ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

BodyDock::BodyDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent), texts_(texts), tree_(new QTreeWidget) {
  setObjectName("bodies");
  tree_->setRootIsDecorated(false);
  tree_->setUniformRowHeights(true);
  tree_->setColumnCount(2);
  tree_->header()->resizeSection(kShown, kNameWidth);
  setWidget(tree_);
  connect(tree_, &QTreeWidget::itemChanged, this, [this](const QTreeWidgetItem* item) { Keep(*item); });
  connect(&texts_, &Texts::Changed, this, &BodyDock::Retranslate);
  Retranslate();
}

void BodyDock::Retranslate() {
  setWindowTitle(texts_(Text::kBodies));
  tree_->setAccessibleName(texts_(Text::kBodies));
  tree_->setHeaderLabels({texts_(Text::kShownBodies), texts_(Text::kSeeThrough)});
}

std::shared_ptr<const scene::Scene> BodyDock::Show(std::shared_ptr<const scene::Scene> scene) {
  const QSignalBlocker quiet(tree_);
  tree_->clear();
  if (scene == nullptr) return nullptr;
  auto shown = std::make_shared<scene::Scene>(*scene);
  for (scene::SceneBody& body : shown->bodies) {
    if (const auto choice = choices_.find(body.name); choice != choices_.end()) {
      body.isShown = choice->second.isShown;
      body.isSeenThrough = choice->second.isSeenThrough;
    }
    auto* const item = new QTreeWidgetItem(tree_, {ToQString(body.name)});
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(kShown, StateOf(body.isShown));
    item->setCheckState(kSeenThrough, StateOf(body.isSeenThrough));
  }
  return shown;
}

void BodyDock::Keep(const QTreeWidgetItem& item) {
  choices_[item.text(0).toStdString()] = {item.checkState(kShown) == Qt::Checked,
                                          item.checkState(kSeenThrough) == Qt::Checked};
  emit Chosen();
}

}  // namespace vanzet::window
