#include "window/commands/settings_box.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kMostDecimals = 6;  // as stored
constexpr int kSpace = 10;        // pixels between the rows

void Choose(QComboBox& list, const QVariant& value) {
  list.setCurrentIndex(list.findData(value));
}

}  // namespace

SettingsBox::SettingsBox(const Texts& texts, const Settings& settings, QWidget* parent) : QDialog(parent) {
  setWindowTitle(TitleOf(texts(Text::kSettings)));
  auto* const form = new QFormLayout(this);
  form->setVerticalSpacing(kSpace);
  const auto addList = [&](Text name) {
    auto* const list = new QComboBox;
    list->setAccessibleDescription(texts(name));
    form->addRow(texts(name), list);
    return list;
  };
  language_ = addList(Text::kLanguage);
  for (const Language& language : texts.languages())
    language_->addItem(ToQString(language.name), ToQString(language.code));
  appearance_ = addList(Text::kAppearance);
  appearance_->addItem(TitleOf(texts(Text::kLight)), false);
  appearance_->addItem(TitleOf(texts(Text::kDark)), true);
  unit_ = addList(Text::kLengths);
  unit_->addItem(texts(Text::kUnitOfProject), QString());
  for (const LengthUnit unit : {LengthUnit::kMillimetre, LengthUnit::kInch})
    unit_->addItem(ToQString(WordOf(unit)), ToQString(WordOf(unit)));
  decimals_ = new QSpinBox;
  decimals_->setRange(0, kMostDecimals);
  decimals_->setAccessibleName(texts(Text::kDecimals));
  form->addRow(texts(Text::kDecimals), decimals_);
  mouse_ = addList(Text::kMouse);
  for (const MouseStyleRow& style : MouseStyles()) mouse_->addItem(texts(style.text), QString(style.name));
  auto* const buttons = new QDialogButtonBox;
  buttons->addButton(texts(Text::kOk), QDialogButtonBox::AcceptRole);
  buttons->addButton(texts(Text::kCancel), QDialogButtonBox::RejectRole);
  form->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  Choose(*language_, ToQString(settings.language));
  Choose(*appearance_, settings.appearance == Appearance::kDark);
  Choose(*unit_, settings.unit);
  decimals_->setValue(settings.decimals);
  Choose(*mouse_, QString(NameOf(settings.mouse)));
}

Settings SettingsBox::Chosen() const {
  return {language_->currentData().toString().toStdString(),
          appearance_->currentData().toBool() ? Appearance::kDark : Appearance::kLight,
          unit_->currentData().toString(), decimals_->value(),
          MouseStyleNamed(mouse_->currentData().toString())};
}

}  // namespace vanzet::window
