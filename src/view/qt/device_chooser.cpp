#include "view/qt/device_chooser.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSettings>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

#include "devices/kinds.h"
#include "view/ids.h"
#include "view/qt/device_words.h"
#include "view/qt/framed.h"
#include "view/qt/lengths.h"
#include "view/qt/pictures/pictures.h"
#include "view/qt/pictures/sketch_painter.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kTitle = Translatable("Choose a device");
constexpr const char* kSearch = Translatable("Search by name, kind or value");
constexpr const char* kTake = Translatable("Choose");
constexpr const char* kCancel = Translatable("Cancel");

constexpr QSize kThumbnail = {96, 60};
constexpr QSize kFirstSize = {560, 620};
constexpr qsizetype kRemembered = 12;
constexpr int kIndexRole = Qt::UserRole;

struct KindName {
  const devices::Kind* kind;
  const char* name;
};
constexpr KindName kKindNames[] = {
    {&devices::kChuck, Translatable("Chuck")},     {&devices::kCollet, Translatable("Collet")},
    {&devices::kMandrel, Translatable("Mandrel")}, {&devices::kFaceDriver, Translatable("Face driver")},
    {&devices::kJaw, Translatable("Jaw")},         {&devices::kCenter, Translatable("Center")},
};

QSettings Settings() {
  return QSettings(QStringLiteral("vanzet"), QStringLiteral("equipment-definition"));
}

QStringList Remembered() {
  return Settings().value(QStringLiteral("recent-devices")).toStringList();
}

/// "Jaw 3": the kind, and the shape where the kind has several.
QString KindText(std::int32_t type) {
  const devices::Kind* const kind = devices::KindOf(type);
  const auto* const row = std::ranges::find(kKindNames, kind, &KindName::kind);
  if (row == std::end(kKindNames)) return {};
  const QString name = Translate(row->name);
  return kind->devices.size() < 2 ? name : name + QLatin1Char(' ') + QString::number(kind->ShapeOf(type));
}

/// "A 105, B 98".
QString ValuesText(const ListedDevice& device) {
  QStringList values;
  for (const devices::Letter& each : devices::LettersOf(device.type)) {
    const double value = device.values.at(static_cast<std::size_t>(each.letter - 'A'));
    if (value == 0) continue;
    const bool isLength = each.unit == Unit::kMillimetre;
    const QString number = isLength ? LengthLabel(value) : QString::number(value);
    values.append(QString(QLatin1Char(each.letter)) + QLatin1Char(' ') + number);
  }
  return values.join(QStringLiteral(", "));
}

/// The outline of a device, without its measures.
QPixmap Thumbnail(const ListedDevice& device, const QWidget& where) {
  std::vector<Control> controls;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    controls.push_back({.id = control::EditOfLetter(letter),
                        .kind = ControlKind::kEdit,
                        .isReal = true,
                        .number = device.values.at(static_cast<std::size_t>(letter - 'A'))});
  }
  Sketch sketch = SketchOf(devices::PictureOf(device.type), PageValues(controls));
  sketch.measures.clear();
  sketch.notes.clear();
  sketch.fault.clear();
  QPixmap picture(kThumbnail * where.devicePixelRatio());
  picture.setDevicePixelRatio(where.devicePixelRatio());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QFont font = where.font();
  // The margins around a sketch are in letters, and there are none.
  font.setPixelSize(4);
  Paint(painter, QRectF(QPointF(0, 0), kThumbnail), sketch, {.palette = where.palette(), .font = font});
  return picture;
}

/// The indices of the names, those that were used last first.
std::vector<int> InOrderOfUse(const std::vector<std::string>& names) {
  const QStringList recent = Remembered();
  const auto rank = [&](int index) {
    const qsizetype at = recent.indexOf(QString::fromStdString(names[static_cast<std::size_t>(index)]));
    return at < 0 ? recent.size() : at;
  };
  std::vector<int> order(names.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, rank);
  return order;
}

/// The window of the list. The keyboard stays in the search field; the arrows walk the list from there.
class Chooser final : public QDialog {
 public:
  explicit Chooser(QWidget* parent)
      : QDialog(parent), search_(new Framed<QLineEdit>(this)), list_(new QListWidget(this)) {
    setWindowTitle(Translate(kTitle));
    resize(kFirstSize);
    search_->setPlaceholderText(Translate(kSearch));
    search_->setAccessibleName(Translate(kSearch));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setIconSize(kThumbnail);
    list_->setSpacing(2);
    list_->setAccessibleName(Translate(kTitle));
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(search_);
    rows->addWidget(list_, 1);
    rows->addWidget(Buttons());
    connect(search_, &QLineEdit::textChanged, this, [this] { Filter(); });
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  }

  void Add(int index, const QString& name, const ListedDevice& device) {
    const QString about = QStringList{KindText(device.type), ValuesText(device)}.join(QStringLiteral(": "));
    auto* const item = new QListWidgetItem(Thumbnail(device, *this), name + QLatin1Char('\n') + about, list_);
    item->setData(kIndexRole, index);
    if (list_->currentRow() < 0) list_->setCurrentItem(item);
  }

  std::optional<int> Chosen() const {
    const QListWidgetItem* const item = list_->currentItem();
    if (item == nullptr || item->isHidden()) return std::nullopt;
    return item->data(kIndexRole).toInt();
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

  QLineEdit* search_;
  QListWidget* list_;
};

}  // namespace

std::optional<int> ChooseDevice(const std::vector<std::string>& names,
                                const std::vector<ListedDevice>& devices, QWidget* parent) {
  Chooser chooser(parent);
  for (const int index : InOrderOfUse(names)) {
    const auto at = static_cast<std::size_t>(index);
    chooser.Add(index, QString::fromStdString(names[at]), devices[at]);
  }
  return chooser.exec() == QDialog::Accepted ? chooser.Chosen() : std::nullopt;
}

void RememberDevice(const QString& name) {
  QStringList recent = Remembered();
  recent.removeAll(name);
  recent.prepend(name);
  QSettings settings = Settings();
  settings.setValue(QStringLiteral("recent-devices"), recent.mid(0, kRemembered));
}

}  // namespace vanzet::view::qt
