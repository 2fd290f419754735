#include "view/qt/control_widget.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QWheelEvent>

#include "view/ids.h"
#include "view/qt/framed.h"
#include "view/qt/icons.h"
#include "view/qt/list/device_list.h"
#include "view/qt/list/own_device_list.h"
#include "view/qt/painter_canvas.h"
#include "view/qt/texts.h"
#include "view/shared/lengths.h"
#include "view/shared/pictures/painter.h"
#include "view/shared/tree_model.h"

namespace vanzet::view::qt {
namespace {

/// How many letters of an entry a combo shows at least.
constexpr int kNameLetters = 22;

constexpr const char* kUnstored = Translatable("Values are not stored yet");
constexpr const char* kNoNumber = Translatable("Not a number");

/// A widget whose value the wheel changes only while it has the focus. Otherwise a user who scrolls a page
/// would change the values under the cursor.
template <class Widget>
class NoAccidentalWheel final : public Framed<Widget> {
 public:
  using Framed<Widget>::Framed;

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (this->hasFocus()) return Widget::wheelEvent(event);
    event->ignore();
  }
};

class ButtonWidget final : public ControlWidget {
 public:
  ButtonWidget(const Control& control, const Send& send, QWidget* parent)
      : ControlWidget(control.id, new QPushButton(parent)) {
    const std::int32_t id = control.id;
    QObject::connect(&Button(), &QPushButton::clicked, &Button(),
                     [send, id] { send([id](Dialog& dialog) { dialog.Press(id); }); });
  }

  void ShowContent(const Control& control) override {
    const ButtonIcon icon = IconOfButton(control.id, control.text);
    if (icon.file != nullptr) Button().setIcon(IconOf(icon.file));
    text_ = icon.replacesText ? std::string() : control.text;
    if (Button().accessibleName().isEmpty()) Button().setAccessibleName(QString::fromStdString(control.text));
  }

  void MarkMnemonic(Mnemonics& mnemonics) override {
    const QString marked = QString::fromStdString(mnemonics.Mark(text_)) + mark_;
    if (Button().text() != marked) Button().setText(marked);
  }

  void MarkUnstored(bool isUnstored) override {
    mark_ = isUnstored ? QLatin1Char(' ') + QString::fromUtf8(kUnstoredSign) : QString();
    Button().setAccessibleDescription(isUnstored ? Translate(kUnstored) : QString());
  }

 private:
  QPushButton& Button() { return static_cast<QPushButton&>(*Widget()); }
  std::string text_;
  QString mark_;
};

class EditWidget : public ControlWidget {
 public:
  EditWidget(const Control& control, const Send& send, QWidget* parent)
      : ControlWidget(control.id, new Framed<QLineEdit>(parent)) {
    const std::int32_t id = control.id;
    QObject::connect(&Edit(), &QLineEdit::textEdited, &Edit(), [this, send, id](const QString& text) {
      send([&](Dialog& dialog) { dialog.SetText(id, DialogText(text.toStdString(), unit_)); });
    });
    hint_ = Edit().addAction(IconOf("warning"), QLineEdit::TrailingPosition);
    hint_->setVisible(false);
  }

  void SetUnit(LengthUnit unit) override { unit_ = unit; }

  void ShowContent(const Control& control) override {
    ShowText(control);
    isNoNumber_ = control.isReal && !control.number;
    Mark(isNoNumber_ ? Translate(kNoNumber) : QString());
    if (control.isReal) Edit().setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }

  void ShowFault(const QString& reason) override {
    if (!isNoNumber_) Mark(reason);
  }

 protected:
  QLineEdit& Edit() { return static_cast<QLineEdit&>(*Widget()); }

 private:
  void Mark(const QString& fault) {
    if (Edit().accessibleDescription() == fault) return;
    hint_->setVisible(!fault.isEmpty());
    hint_->setToolTip(fault);
    Edit().setAccessibleDescription(fault);
    QPalette colours;
    if (!fault.isEmpty())
      colours.setColor(QPalette::Text, ColourOf(FaultColour(ColoursOf(Edit().palette()))));
    Edit().setPalette(colours);
  }

  void ShowText(const Control& control) {
    const bool isFocused = Edit().window()->focusWidget() == &Edit();
    const QString text = QString::fromStdString(
        isFocused ? EditedText(control, Edit().text().toStdString(), unit_) : RestingText(control, unit_));
    if (Edit().text() == text) return;
    const bool wasMarked = isFocused && Edit().hasSelectedText() && Edit().selectedText() == Edit().text();
    Edit().setText(text);
    // The first digits are those that count.
    Edit().setCursorPosition(0);
    if (wasMarked) Edit().selectAll();
  }

  QAction* hint_;
  bool isNoNumber_ = false;
  LengthUnit unit_ = LengthUnit::kMillimetre;
};

/// The path of an own device, which can also be chosen from a list.
class PathWidget final : public EditWidget {
 public:
  PathWidget(const Control& control, const Send& send, QWidget* parent)
      : EditWidget(control, send, parent), send_(send) {}

  void ShowContent(const Control& control) override {
    EditWidget::ShowContent(control);
    const QString path = QString::fromStdString(control.text);
    if (path == shown_) return;
    shown_ = path;
    RememberOwnDevice(path);
  }

  void OpenChooser() override {
    const auto path = ChooseOwnDevice(Edit().text(), Edit().window());
    const std::int32_t id = Id();
    if (path) send_([&](Dialog& dialog) { dialog.SetText(id, path->toStdString()); });
    Edit().setFocus();
  }

 private:
  const Send send_;
  QString shown_;
};

class CheckWidget final : public ControlWidget {
 public:
  CheckWidget(const Control& control, const Send& send, QWidget* parent)
      : ControlWidget(control.id, new Framed<QCheckBox>(parent)) {
    const std::int32_t id = control.id;
    QObject::connect(&Box(), &QCheckBox::clicked, &Box(), [send, id](bool isChecked) {
      send([=](Dialog& dialog) { dialog.SetChecked(id, isChecked); });
    });
  }

  void ShowContent(const Control& control) override {
    text_ = control.text;
    Box().setAccessibleName(QString::fromStdString(text_));
    Box().setChecked(control.isChecked);
  }

  void MarkMnemonic(Mnemonics& mnemonics) override {
    const QString marked = QString::fromStdString(mnemonics.Mark(text_));
    if (Box().text() != marked) Box().setText(marked);
  }

 private:
  QCheckBox& Box() { return static_cast<QCheckBox&>(*Widget()); }
  std::string text_;
};

class ComboWidget final : public ControlWidget {
 public:
  ComboWidget(const Control& control, const Send& send, QWidget* parent)
      : ControlWidget(control.id, new NoAccidentalWheel<QComboBox>(parent)), send_(send) {
    const std::int32_t id = control.id;
    Combo().setFocusPolicy(Qt::StrongFocus);
    Combo().setEditable(!control.isList);
    Combo().setInsertPolicy(QComboBox::NoInsert);
    Combo().setMinimumContentsLength(kNameLetters);
    Combo().setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QObject::connect(&Combo(), &QComboBox::activated, &Combo(), [this](int index) { Choose(index); });
    if (!Combo().isEditable()) return;
    // No completer: it would overwrite a name that is the beginning of another.
    Combo().setCompleter(nullptr);
    QObject::connect(Combo().lineEdit(), &QLineEdit::textEdited, &Combo(), [send, id](const QString& text) {
      send([&](Dialog& dialog) { dialog.SetText(id, text.toStdString()); });
    });
  }

  void ShowContent(const Control& control) override {
    const QSignalBlocker quiet(&Combo());
    devices_ = control.devices;
    if (items_ != control.items) {
      items_ = control.items;
      Combo().clear();
      for (const std::string& item : items_) Combo().addItem(QString::fromStdString(item));
    }
    if (Combo().currentIndex() != control.selected) Combo().setCurrentIndex(control.selected);
    const QString text = QString::fromStdString(control.text);
    if (Combo().isEditable() && Combo().currentText() != text) Combo().setEditText(text);
  }

  void OpenChooser() override {
    const auto index = ChooseDevice(items_, devices_, Combo().window());
    if (index) Choose(*index);
    Combo().setFocus();
  }

 private:
  QComboBox& Combo() { return static_cast<QComboBox&>(*Widget()); }

  void Choose(int index) {
    if (index >= 0 && !devices_.empty()) RememberDevice(Combo().itemText(index));
    const std::int32_t id = Id();
    send_([=](Dialog& dialog) { dialog.Choose(id, index); });
  }

  const Send send_;
  std::vector<ListedDevice> devices_;
  std::vector<std::string> items_;
};

class SpinWidget final : public ControlWidget {
 public:
  SpinWidget(const Control& control, const Send& send, QWidget* parent)
      : ControlWidget(control.id, new NoAccidentalWheel<QSpinBox>(parent)) {
    const std::int32_t id = control.id;
    Spin().setFocusPolicy(Qt::StrongFocus);
    Spin().setRange(control.least, control.most);
    QObject::connect(&Spin(), &QSpinBox::valueChanged, &Spin(),
                     [send, id](int value) { send([=](Dialog& dialog) { dialog.SetValue(id, value); }); });
  }

  void ShowContent(const Control& control) override {
    const QSignalBlocker quiet(&Spin());
    if (Spin().value() != control.value) Spin().setValue(control.value);
  }

 private:
  QSpinBox& Spin() { return static_cast<QSpinBox&>(*Widget()); }
};

class LabelWidget final : public ControlWidget {
 public:
  LabelWidget(const Control& control, const Send& /*send*/, QWidget* parent)
      : ControlWidget(control.id, new QLabel(parent)) {}

  void ShowContent(const Control& control) override {
    text_ = control.text;
    const QString text = QString::fromStdString(text_);
    if (Label().buddy() == nullptr && Label().text() != text) Label().setText(text);
  }

  void MarkMnemonic(Mnemonics& mnemonics) override {
    if (Label().buddy() == nullptr) return;
    const QString marked = QString::fromStdString(mnemonics.Mark(text_));
    if (Label().text() != marked) Label().setText(marked);
  }

 private:
  QLabel& Label() { return static_cast<QLabel&>(*Widget()); }
  std::string text_;
};

template <class Widget>
std::unique_ptr<ControlWidget> Make(const Control& control, const Send& send, QWidget* parent) {
  return std::make_unique<Widget>(control, send, parent);
}

struct KindMaker {
  ControlKind kind;
  std::unique_ptr<ControlWidget> (*make)(const Control&, const Send&, QWidget*);
};

constexpr KindMaker kMakers[] = {
    {ControlKind::kButton, Make<ButtonWidget>}, {ControlKind::kEdit, Make<EditWidget>},
    {ControlKind::kCheck, Make<CheckWidget>},   {ControlKind::kCombo, Make<ComboWidget>},
    {ControlKind::kSpin, Make<SpinWidget>},     {ControlKind::kLabel, Make<LabelWidget>},
};

}  // namespace

ControlWidget::ControlWidget(std::int32_t id, QWidget* widget) : id_(id), widget_(widget) {
  widget_->setObjectName(QString::number(id));
}

void ControlWidget::Show(const Control& control) {
  widget_->setEnabled(control.isEnabled);
  widget_->setVisible(control.isVisible);
  for (QWidget* const companion : companions_) {
    companion->setEnabled(control.isEnabled);
    companion->setVisible(control.isVisible);
  }
  ShowContent(control);
}

void ControlWidget::SetSpokenName(const QString& name) {
  widget_->setAccessibleName(name);
  widget_->setToolTip(name);
}

std::unique_ptr<ControlWidget> MakeControlWidget(const Control& control, const Send& send, QWidget* parent) {
  if (control.id == control::kPath) return Make<PathWidget>(control, send, parent);
  for (const KindMaker& row : kMakers) {
    if (row.kind == control.kind) return row.make(control, send, parent);
  }
  return nullptr;
}

}  // namespace vanzet::view::qt
