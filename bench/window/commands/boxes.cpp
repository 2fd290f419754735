#include "window/commands/boxes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "window/theme.h"

namespace vanzet::window {

NewProjectBox::NewProjectBox(const Texts& texts, const QStringList& samples, const QString& place,
                             QWidget* parent)
    : QDialog(parent),
      texts_(texts),
      name_(new QLineEdit),
      place_(new QLineEdit(place)),
      sample_(new QComboBox),
      folder_(new QLabel) {
  setWindowTitle(texts(Text::kNewProject).remove('&').remove("..."));
  setMinimumWidth(480);
  sample_->addItems(samples);
  auto* const browse = new QPushButton(texts(Text::kBrowse));
  auto* const row = new QHBoxLayout;
  row->addWidget(place_, 1);
  row->addWidget(browse);
  auto* const buttons = new QDialogButtonBox;
  make_ = buttons->addButton(texts(Text::kMake), QDialogButtonBox::AcceptRole);
  buttons->addButton(texts(Text::kCancel), QDialogButtonBox::RejectRole);
  auto* const form = new QFormLayout(this);
  form->setVerticalSpacing(10);
  form->addRow(texts(Text::kProjectName), name_);
  form->addRow(texts(Text::kPlace), row);
  form->addRow(texts(Text::kSample), sample_);
  form->addRow(folder_);
  form->addRow(buttons);
  connect(browse, &QPushButton::clicked, this, &NewProjectBox::Browse);
  for (QLineEdit* edit : {name_, place_}) connect(edit, &QLineEdit::textChanged, this, &NewProjectBox::Check);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  Check();
}

QString NewProjectBox::Folder() const {
  return QDir(place_->text()).filePath(name_->text().trimmed());
}

QString NewProjectBox::Sample() const {
  return sample_->currentText();
}

void NewProjectBox::Browse() {
  const QString folder = QFileDialog::getExistingDirectory(this, texts_(Text::kPlace), place_->text());
  if (!folder.isEmpty()) place_->setText(folder);
}

/// A name is wanted that nothing has yet.
void NewProjectBox::Check() {
  const bool isNamed = !name_->text().trimmed().isEmpty() && !place_->text().isEmpty();
  const bool isTaken = isNamed && QFileInfo::exists(Folder());
  make_->setEnabled(isNamed && !isTaken);
  folder_->setText(isTaken ? texts_(Text::kTaken).arg(Folder()) : isNamed ? Folder() : QString(" "));
}

}  // namespace vanzet::window
