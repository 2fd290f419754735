#include "view/qt/list/chooser.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "view/qt/framed.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kTake = Translatable("Choose");
constexpr const char* kCancel = Translatable("Cancel");

constexpr QSize kFirstSize = {560, 620};
constexpr qsizetype kRemembered = 12;
constexpr int kAtOnce = 30;  // entries that have their details before the list is seen

QSettings Settings() {
  return QSettings(QStringLiteral("vanzet"), QStringLiteral("equipment-definition"));
}

QPixmap NoPicture() {
  QPixmap none(kThumbnail);
  none.fill(Qt::transparent);
  return none;
}

/// The window of the list. The keyboard stays in the search field; the arrows walk the list from there.
class Chooser final : public QDialog {
 public:
  Chooser(const QString& title, const QString& search, const std::vector<ListEntry>& entries, QWidget* parent)
      : QDialog(parent),
        entries_(entries),
        search_(new Framed<QLineEdit>(this)),
        list_(new QListWidget(this)),
        next_(new QTimer(this)) {
    setWindowTitle(title);
    resize(kFirstSize);
    search_->setPlaceholderText(search);
    search_->setAccessibleName(search);
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setIconSize(kThumbnail);
    list_->setSpacing(2);
    list_->setAccessibleName(title);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(search_);
    rows->addWidget(list_, 1);
    rows->addWidget(Buttons());
    for (const ListEntry& entry : entries_) new QListWidgetItem(NoPicture(), entry.name, list_);
    if (!entries_.empty()) list_->setCurrentRow(0);
    connect(search_, &QLineEdit::textChanged, this, [this] { Filter(); });
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(next_, &QTimer::timeout, this, [this] { Describe(described_ + 1); });
    Describe(kAtOnce);
    next_->start();
  }

  std::optional<int> Chosen() const {
    const QListWidgetItem* const item = list_->currentItem();
    if (item == nullptr || item->isHidden()) return std::nullopt;
    return list_->row(item);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Down && key != Qt::Key_Up) return QDialog::eventFilter(watched, event);
    Walk(key == Qt::Key_Down ? 1 : -1);
    return true;
  }

 private:
  QDialogButtonBox* Buttons() {
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(Translate(kTake), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(Translate(kCancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  /// Gives entries their pictures, until so many have theirs.
  void Describe(int count) {
    const int end = std::min(count, list_->count());
    for (; described_ < end; ++described_) {
      const ListEntry& entry = entries_[static_cast<std::size_t>(described_)];
      const EntryDetails details = entry.details(*this);
      QListWidgetItem& item = *list_->item(described_);
      item.setText(entry.name + QLatin1Char('\n') + details.about);
      if (!details.picture.isNull()) item.setIcon(details.picture);
    }
    if (described_ == list_->count()) next_->stop();
    if (!search_->text().isEmpty()) Filter();
  }

  /// Leaves the entries that have every word of the search.
  void Filter() {
    const QStringList words = search_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < list_->count(); ++row) {
      QListWidgetItem* const item = list_->item(row);
      const bool fits = std::ranges::all_of(
          words, [&](const QString& word) { return item->text().contains(word, Qt::CaseInsensitive); });
      item->setHidden(!fits);
      if (fits && first == nullptr) first = item;
    }
    list_->setCurrentItem(first);
  }

  void Walk(int step) {
    int row = list_->currentRow() + step;
    while (row >= 0 && row < list_->count() && list_->item(row)->isHidden()) row += step;
    if (row >= 0 && row < list_->count()) list_->setCurrentRow(row);
  }

  const std::vector<ListEntry>& entries_;
  QLineEdit* search_;
  QListWidget* list_;
  QTimer* next_;
  int described_ = 0;  ///< entries
};

}  // namespace

std::optional<int> ChooseEntry(const QString& title, const QString& search,
                               const std::vector<ListEntry>& entries, QWidget* parent) {
  Chooser chooser(title, search, entries, parent);
  return chooser.exec() == QDialog::Accepted ? chooser.Chosen() : std::nullopt;
}

QStringList UsedNames::Read() const {
  return Settings().value(QLatin1String(key_)).toStringList();
}

void UsedNames::PutFirst(const QString& name) const {
  QStringList used = Read();
  used.removeAll(name);
  used.prepend(name);
  QSettings settings = Settings();
  settings.setValue(QLatin1String(key_), used.mid(0, kRemembered));
}

}  // namespace vanzet::view::qt
