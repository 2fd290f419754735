#pragma once

#include <QProcess>
#include <QTimer>
#include <filesystem>

#include "base/length_unit.h"
#include "window/checks/reported_finding.h"

namespace vanzet::window {

/// Checks the open project in the background: a program of its own reads what is stored, so that neither the
/// geometry library nor the kernel of solids is used by two threads, and a check that takes long can be
/// ended at any time.
class BackgroundCheck final : public QObject {
  Q_OBJECT
 public:
  /// `program` is the command line's.
  BackgroundCheck(const std::filesystem::path& program, QObject* parent);
  ~BackgroundCheck() override;  ///< ends the check

  /// Checks soon. A check that is going on is of an older state: it is ended.
  struct Question {
    std::filesystem::path folder;
    LengthUnit unit;
    std::string language;
  };
  void Ask(Question question);

  /// Asks nothing and ends what is going on.
  void Cancel();

 signals:
  void Begun();
  void Found(const std::vector<ReportedFinding>& findings);
  void Failed(const QString& reason);

 private:
  void Start();
  void Take(int status);

  QString program_;
  Question question_ = {};
  QProcess process_;
  QTimer soon_;
};

}  // namespace vanzet::window
