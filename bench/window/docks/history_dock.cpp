#include "window/docks/history_dock.h"

#include <QDateTime>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kGenerationRole = Qt::UserRole;

/// "22.11.2026 10:15", in the time of the place.
QString TimeForPeople(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(ToQString(utc), Qt::ISODate).toLocalTime();
  return time.isValid() ? time.toString("yyyy-MM-dd HH:mm:ss") : ToQString(utc);
}

QString WordsOf(const history::Entry& entry) {
  QStringList words;
  for (const std::string& each : entry.words) words << ToQString(each);
  return words.join("; ");
}

}  // namespace

HistoryDock::HistoryDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent),
      texts_(texts),
      tree_(new QTreeWidget),
      restore_(new QPushButton),
      then_(new SectionPicture),
      now_(new SectionPicture) {
  setObjectName("history");
  tree_->setColumnCount(3);
  tree_->setRootIsDecorated(false);
  tree_->setUniformRowHeights(true);
  tree_->setAlternatingRowColors(true);
  auto* const content = new QWidget;
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins(4, 0, 4, 4);
  auto* const beside = new QHBoxLayout;
  beside->addWidget(tree_, 3);
  beside->addWidget(then_, 1);
  beside->addWidget(now_, 1);
  rows->addLayout(beside, 1);
  rows->addWidget(restore_, 0, Qt::AlignRight);
  setWidget(content);
  connect(restore_, &QPushButton::clicked, this, &HistoryDock::AskToRestore);
  connect(tree_, &QTreeWidget::itemActivated, this, &HistoryDock::AskToRestore);
  connect(tree_, &QTreeWidget::currentItemChanged, this,
          [this] { restore_->setEnabled(tree_->currentItem() != nullptr); });
  connect(tree_, &QTreeWidget::currentItemChanged, this, &HistoryDock::StateChosen);
  connect(&texts_, &Texts::Changed, this, &HistoryDock::Retranslate);
  Retranslate();
}

void HistoryDock::Retranslate() {
  setWindowTitle(texts_(Text::kHistory));
  tree_->setAccessibleName(texts_(Text::kHistory));
  tree_->setHeaderLabels({texts_(Text::kWhen), texts_(Text::kBy), texts_(Text::kChange)});
  restore_->setText(texts_(Text::kRestore));
  then_->SetTitle(texts_(Text::kStateThen));
  now_->SetTitle(texts_(Text::kStateNow));
}

qint64 HistoryDock::Chosen() const {
  const QTreeWidgetItem* const item = tree_->currentItem();
  return item == nullptr ? 0 : item->data(0, kGenerationRole).toLongLong();
}

void HistoryDock::ShowPictures(std::shared_ptr<const ShownSection> then,
                               std::shared_ptr<const ShownSection> now) {
  then_->Show(std::move(then), Chosen() == 0 ? QString() : texts_(Text::kNoSection));
  now_->Show(std::move(now), texts_(Text::kNoSection));
}

void HistoryDock::Show(const std::vector<history::Entry>& entries) {
  tree_->clear();
  for (const history::Entry& entry : entries) {
    const vdm::Generation& generation = entry.change.generation;
    auto* const item = new QTreeWidgetItem(
        tree_, {TimeForPeople(generation.time), ToQString(generation.user + ", " + generation.occasion),
                "VDM " + QString::number(static_cast<qint64>(entry.change.vdm)) + ": " + WordsOf(entry)});
    item->setData(0, kGenerationRole, static_cast<qint64>(generation.number));
    item->setToolTip(2, WordsOf(entry));
  }
  for (int column = 0; column < 2; ++column) tree_->resizeColumnToContents(column);
  restore_->setEnabled(false);
}

void HistoryDock::AskToRestore() {
  const QTreeWidgetItem* const item = tree_->currentItem();
  if (item != nullptr) emit RestoreWanted(item->data(0, kGenerationRole).toLongLong(), item->text(0));
}

}  // namespace vanzet::window
