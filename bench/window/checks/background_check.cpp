#include "window/checks/background_check.h"

#include <utility>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

// Milliseconds.
constexpr int kDelay = 150;   // in which changes are gathered
constexpr int kEnding = 500;  // until a check that does not end is killed

constexpr int kDone = 0, kFound = 3;  // the exit status of the check

/// The first line of the errors, without the name of the program.
QString ReasonIn(const QByteArray& errors) {
  QString line = QString::fromUtf8(errors).section('\n', 0, 0);
  const QString name = "vanzet: ";
  return line.startsWith(name) ? line.mid(name.size()) : line;
}

}  // namespace

BackgroundCheck::BackgroundCheck(const std::filesystem::path& program, QObject* parent)
    : QObject(parent), program_(ToQString(program)) {
  soon_.setSingleShot(true);
  soon_.setInterval(kDelay);
  connect(&soon_, &QTimer::timeout, this, &BackgroundCheck::Start);
  connect(&process_, &QProcess::finished, this, [this](int status, QProcess::ExitStatus end) {
    if (end == QProcess::NormalExit) Take(status);
  });
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) emit Failed(process_.errorString());
  });
}

BackgroundCheck::~BackgroundCheck() {
  Cancel();
}

void BackgroundCheck::Ask(Question question) {
  Cancel();
  question_ = std::move(question);
  soon_.start();
}

void BackgroundCheck::Cancel() {
  soon_.stop();
  if (process_.state() == QProcess::NotRunning) return;
  const QSignalBlocker quiet(process_);
  // Asked to end, it ends the programs that read solids for it, too.
  process_.terminate();
  if (process_.waitForFinished(kEnding)) return;
  process_.kill();
  process_.waitForFinished();
}

void BackgroundCheck::Start() {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("VANZET_LANGUAGE", ToQString(question_.language));
  process_.setProcessEnvironment(environment);
  emit Begun();
  process_.start(program_, {"check", ToQString(question_.folder), "--json", "--unit",
                            ToQString(WordOf(question_.unit))});
}

void BackgroundCheck::Take(int status) {
  if (status != kDone && status != kFound) return emit Failed(ReasonIn(process_.readAllStandardError()));
  const auto findings = ReadFindings(process_.readAllStandardOutput());
  if (!findings) return emit Failed(ToQString(findings.fault().Message()));
  emit Found(*findings);
}

}  // namespace vanzet::window
