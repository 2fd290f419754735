#pragma once

#include <Message_ProgressIndicator.hxx>
#include <cstdint>
#include <string>

#include "base/result.h"

/// This program as a process: its limits, and its reports to the program that started it, one a line on
/// standard output.
namespace vanzet::modeller {

/// "progress 0.25"; the fraction given is that of the stage in work, the fraction reported that of the whole.
void ReportProgress(double done);

/// Begins a part of the work: this one of so many. It is one stage until others begin.
void BeginPart(std::size_t part, std::size_t parts);

/// Begins the stage of the part that takes it from one fraction to another.
void BeginStage(double from, double to);

/// "coarse": a coarse mesh is among the answers.
void ReportCoarse();

/// "fault TEXT", or "missing TEXT" for a fault of the kind `kMissing`.
void ReportFault(const Fault& fault);

/// Collects the failure messages of Open CASCADE from now on, instead of printing them.
void CollectKernelMessages();

/// The first failure message as ": MESSAGE", or nothing.
std::string FirstKernelMessage();

/// Reports the progress of a piece of work, which is done between two fractions of the stage.
class ProgressReporter final : public Message_ProgressIndicator {
 public:
  explicit ProgressReporter(double from = 0, double to = 1) : from_(from), to_(to) {}

 private:
  void Show(const Message_ProgressScope& scope, Standard_Boolean isForced) override;

  double from_;
  double to_;
  double reported_ = 0;
};

/// Limits this process from now on: its processor time, its memory, and the size of the files that it
/// writes; it leaves no core file. It ends when its parent ends and ignores Ctrl-C, which its parent
/// handles.
void LimitProcess(int seconds, std::uint64_t bytes);

}  // namespace vanzet::modeller
