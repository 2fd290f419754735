#include "window/commands/boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vanzet::window {
namespace {

constexpr int kMoment = 400;  // milliseconds before the box of a work is shown
constexpr int kSteps = 1000;

}  // namespace

BusyBox::BusyBox(const Texts& texts, Text work, QWidget* window)
    : box_(texts(work), texts(Text::kCancel), 0, 0, window) {
  box_.setWindowModality(Qt::WindowModal);
  box_.setWindowTitle(texts(Text::kWindowTitle));
  box_.setMinimumDuration(1 << 30);  // it is shown by ShowProgress
  box_.setAutoReset(false);
  box_.setAutoClose(false);
  box_.setMinimumWidth(360);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  clock_.start();
}

BusyBox::~BusyBox() {
  QApplication::restoreOverrideCursor();
}

modeller::Progress BusyBox::Progress() {
  return [this](double done) { return ShowProgress(done); };
}

/// False when the work is to end.
bool BusyBox::ShowProgress(double done) {
  if (!box_.isVisible() && clock_.elapsed() > kMoment) box_.show();
  if (done > 0) {
    box_.setMaximum(kSteps);
    box_.setValue(static_cast<int>(done * kSteps));
  }
  QCoreApplication::processEvents(box_.isVisible() ? QEventLoop::AllEvents
                                                   : QEventLoop::ExcludeUserInputEvents);
  return !box_.wasCanceled();
}

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

void NewProjectBox::Choose(const QString& sample) {
  if (!sample.isEmpty()) sample_->setCurrentText(sample);
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

/// The project can be made under a name that no file has.
void NewProjectBox::Check() {
  const bool isNamed = !name_->text().trimmed().isEmpty() && !place_->text().isEmpty();
  const bool isInUse = isNamed && QFileInfo::exists(Folder());
  make_->setEnabled(isNamed && !isInUse);
  folder_->setText(isInUse ? texts_(Text::kAlreadyExists).arg(Folder()) : isNamed ? Folder() : QString(" "));
}

}  // namespace vanzet::window
