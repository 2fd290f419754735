#include "window/commands/body_reader.h"

#include <utility>

#include "modeller/laying.h"
#include "results/equipment.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

constexpr double kStep = 0.005;  // of the progress that is shown

/// The state of a file and of the text that says how its body lies.
std::string StampOf(const fs::path& file) {
  std::error_code error;
  std::string stamp;
  for (const fs::path& each : {file, modeller::LayingFileOf(file)}) {
    const auto time = fs::last_write_time(each, error).time_since_epoch().count();
    stamp += std::to_string(time) + ":" + std::to_string(fs::file_size(each, error)) + " ";
  }
  return stamp;
}

Fault StillReading(const std::string& name) {
  return {.text = "body '" + name + "' is being read", .kind = FaultKind::kBusy};
}

}  // namespace

BodyReader::BodyReader() {
  thread_.setMaxThreadCount(1);
}

BodyReader::~BodyReader() {
  Cancel();
  thread_.waitForDone();
}

Result<modeller::Body> BodyReader::Find(const fs::path& folder, const std::string& name) {
  VANZET_TRY(const auto file, modeller::FindBodyFile(name, folder));
  const std::string stamp = StampOf(file.path);
  Entry& entry = entries_[file.path];
  if (entry.stamp != stamp) {
    *entry.isCancelled = true;
    entry = Entry{stamp};
    Begin(file, entry);
  }
  return entry.body ? *entry.body : StillReading(name);
}

void BodyReader::Begin(const modeller::BodyFile& file, const Entry& entry) {
  ++reading_;
  auto post = [this](auto work) { QMetaObject::invokeMethod(this, work, Qt::QueuedConnection); };
  auto exchange = modeller::Exchange::OfProcess();
  const QString name = ToQString(file.name);
  exchange.progress = [this, post, name, isCancelled = entry.isCancelled,
                       shown = -kStep](double done) mutable {
    if (done >= shown + kStep) post([this, name, done] { emit Progressed(name, done); });
    if (done >= shown + kStep) shown = done;
    return !*isCancelled;
  };
  thread_.start([this, post, exchange, path = file.path, stamp = entry.stamp] {
    const auto whole = modeller::LayAsFileSays(
        modeller::ImportBodyInSteps(path, exchange, results::kForPictures,
                                    [&](const modeller::Body& coarse) {
                                      post([this, path, stamp, laid = modeller::LayAsFileSays(coarse, path)] {
                                        Take(path, stamp, laid);
                                      });
                                    }),
        path);
    post([this, path, stamp, whole] {
      if (--reading_ == 0) emit Ended();
      Take(path, stamp, whole);
    });
  });
}

/// A body that cannot be read, for whatever reason, is missing in the picture, and all else is there.
void BodyReader::Take(const fs::path& file, const std::string& stamp, const Result<modeller::Body>& body) {
  const auto found = entries_.find(file);
  if (found == entries_.end() || found->second.stamp != stamp) return;
  found->second.body = body;
  if (!body) {
    Fault fault = body.fault();
    fault.kind = *found->second.isCancelled ? FaultKind::kBusy : FaultKind::kRefused;
    found->second.body = fault;
  }
  emit Arrived();
}

void BodyReader::Cancel() {
  for (auto& [file, entry] : entries_) *entry.isCancelled = true;
}

void BodyReader::Tidy(const fs::path& folder) {
  std::erase_if(entries_, [&](const auto& row) {
    const auto& [file, entry] = row;
    if (file.parent_path() != folder) *entry.isCancelled = true;
    return file.parent_path() != folder || (entry.body && !*entry.body);
  });
}

}  // namespace vanzet::window
