#pragma once

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "modeller/body_folder.h"

namespace vanzet::window {

/// Reads bodies of files in the background, one after the other, and keeps each while its file stays as it
/// is.
///
/// Threads   all calls and signals are in that of the window; only the reading has one of its own
class BodyReader final : public QObject {
  Q_OBJECT
 public:
  BodyReader();
  ~BodyReader() override;  ///< ends the reading

  /// The body with that name, for a picture: with a coarse mesh until its usual one is made. While nothing of
  /// it is there the fault is `kBusy`, and it is read; `Arrived` follows. After `Cancel` the fault is the
  /// same, and it is not read.
  Result<modeller::Body> Find(const std::filesystem::path& folder, const std::string& name);

  bool IsReading() const { return reading_ > 0; }
  void Cancel();

  /// Forgets the bodies of other folders, and those that failed or were cancelled, which are then read again.
  void Tidy(const std::filesystem::path& folder);

 signals:
  void Progressed(const QString& name, double done);
  void Arrived();  ///< more of a body is there, or it has failed
  void Ended();    ///< nothing more is being read

 private:
  struct Entry {
    std::string stamp;  ///< of the file that is read
    std::shared_ptr<std::atomic<bool>> isCancelled = std::make_shared<std::atomic<bool>>(false);
    std::optional<Result<modeller::Body>> body = {};
  };

  void Begin(const modeller::BodyFile& file, const Entry& entry);
  void Take(const std::filesystem::path& file, const std::string& stamp, const Result<modeller::Body>& body);

  std::map<std::filesystem::path, Entry> entries_;
  int reading_ = 0;  ///< bodies that are not whole
  QThreadPool thread_;
};

}  // namespace vanzet::window
