#include "view/qt/file_dialogs.h"

#include <QFileDialog>

#include "view/qt/owner.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

using platform::FileQuestion;

constexpr const char* kOpen = Translatable("Open File");
constexpr const char* kSave = Translatable("Save File");
constexpr const char* kAllFiles = Translatable("All Files (*)");

/// A suggested name that stands for many: it says what is listed.
bool IsPattern(const std::string& name) {
  return name.find('*') != std::string::npos;
}

/// "VDM Files (*.vdm)|*.vdm||" is one filter, of a name and a pattern.
QStringList NameFilters(const FileQuestion& question) {
  const QStringList parts =
      QString::fromStdString(question.filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  if (IsPattern(question.suggested)) filters.append(QString::fromStdString(question.suggested));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section(QStringLiteral(" ("), 0, 0);
    filters.append(name + QStringLiteral(" (") +
                   parts[i + 1].simplified().replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')'));
  }
  filters.append(Translate(kAllFiles));
  return filters;
}

void SetUp(QFileDialog& dialog, const FileQuestion& question) {
  const bool isSave = question.kind == FileQuestion::Kind::kSave;
  dialog.setWindowTitle(Translate(isSave ? kSave : kOpen));
  dialog.setAcceptMode(isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.promptsOverwrite);
  dialog.setNameFilters(NameFilters(question));
  dialog.setDefaultSuffix(QString::fromStdString(question.defaultExtension));
  if (!question.startFolder.empty()) dialog.setDirectory(QString::fromStdString(question.startFolder));
  if (!IsPattern(question.suggested)) dialog.selectFile(QString::fromStdString(question.suggested));
  dialog.setAttribute(Qt::WA_QuitOnClose, false);
}

}  // namespace

std::optional<std::string> FileDialogs::Choose(const FileQuestion& question) {
  QWidget* const owner = WidgetOf(question.owner);
  QFileDialog dialog(owner != nullptr ? owner : fallbackOwner);
  SetUp(dialog, question);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

}  // namespace vanzet::view::qt
