#include "window/docks/body_dock.h"

#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidget>

#include "window/definition_words.h"
#include "window/docks/row_marks.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kNameWidth = 220;          // pixels
constexpr int kNameRole = Qt::UserRole;  // the name in the scene; the text is in the window's language

/// The columns with boxes.
enum Column { kShown, kSeenThrough };

Qt::CheckState StateOf(bool isOn) {
  return isOn ? Qt::Checked : Qt::Unchecked;
}

/// In the scene; empty for null.
QString NameOf(const QTreeWidgetItem* item) {
  return item == nullptr ? QString() : item->data(0, kNameRole).toString();
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
  tree_->setMouseTracking(true);
  tree_->viewport()->installEventFilter(this);
  connect(tree_, &QTreeWidget::itemEntered, this,
          [this](const QTreeWidgetItem* item) { emit BodyHovered(NameOf(item)); });
  connect(tree_, &QTreeWidget::itemSelectionChanged, this,
          [this] { emit BodySelected(NameOf(tree_->selectedItems().value(0))); });
  connect(&texts_, &Texts::Changed, this, &BodyDock::Retranslate);
  Retranslate();
}

void BodyDock::Retranslate() {
  setWindowTitle(texts_(Text::kBodies));
  tree_->setAccessibleName(texts_(Text::kBodies));
  tree_->setHeaderLabels({texts_(Text::kShownBodies), texts_(Text::kSeeThrough)});
  const QSignalBlocker quiet(tree_);
  for (int row = 0; row < tree_->topLevelItemCount(); ++row) {
    QTreeWidgetItem* const item = tree_->topLevelItem(row);
    item->setText(0, BodyText(texts_.translations(), NameOf(item)));
  }
}

bool BodyDock::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Leave) emit BodyHovered({});
  return QDockWidget::eventFilter(watched, event);
}

void BodyDock::Mark(const QString& body) {
  if (body == marked_) return;
  marked_ = body;
  ShowMark();
}

void BodyDock::ShowMark() {
  const QSignalBlocker quiet(tree_);
  for (int row = 0; row < tree_->topLevelItemCount(); ++row) {
    QTreeWidgetItem* const item = tree_->topLevelItem(row);
    MarkRow(*item, !marked_.isEmpty() && NameOf(item) == marked_);
  }
}

void BodyDock::Select(const QString& body) {
  const QSignalBlocker quiet(tree_);
  tree_->clearSelection();
  for (int row = 0; row < tree_->topLevelItemCount(); ++row) {
    QTreeWidgetItem* const item = tree_->topLevelItem(row);
    if (!body.isEmpty() && NameOf(item) == body) tree_->setCurrentItem(item);
  }
}

std::shared_ptr<const scene::Scene> BodyDock::Show(const std::shared_ptr<const scene::Scene>& scene) {
  const QSignalBlocker quiet(tree_);
  List(scene == nullptr ? scene::Scene() : *scene);
  if (scene == nullptr) return nullptr;
  auto shown = std::make_shared<scene::Scene>(*scene);
  int row = 0;
  for (scene::SceneBody& body : shown->bodies) {
    if (const auto choice = choices_.find(body.name); choice != choices_.end()) {
      body.isShown = choice->second.isShown;
      body.isSeenThrough = choice->second.isSeenThrough;
    }
    QTreeWidgetItem* const item = tree_->topLevelItem(row++);
    item->setCheckState(kShown, StateOf(body.isShown));
    item->setCheckState(kSeenThrough, StateOf(body.isSeenThrough));
  }
  return shown;
}

/// Lists the names. An item stays while its name does: it can be the one that is being clicked.
void BodyDock::List(const scene::Scene& scene) {
  const int count = static_cast<int>(scene.bodies.size());
  while (tree_->topLevelItemCount() > count) delete tree_->takeTopLevelItem(count);
  for (int row = 0; row < count; ++row) {
    QTreeWidgetItem* item = tree_->topLevelItem(row);
    if (item == nullptr) item = new QTreeWidgetItem(tree_);
    const QString name = ToQString(scene.bodies[static_cast<std::size_t>(row)].name);
    item->setData(0, kNameRole, name);
    item->setText(0, BodyText(texts_.translations(), name));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
  }
  ShowMark();
}

void BodyDock::Keep(const QTreeWidgetItem& item) {
  choices_[NameOf(&item).toStdString()] = {item.checkState(kShown) == Qt::Checked,
                                           item.checkState(kSeenThrough) == Qt::Checked};
  emit Chosen();
}

}  // namespace vanzet::window
