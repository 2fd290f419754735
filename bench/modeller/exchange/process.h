#pragma once

#include <Message_ProgressIndicator.hxx>
#include <cstdint>
#include <string>

#include "base/result.h"

/// This program as a process: its limits, and its reports to the program that started it, one a line on
/// standard output.
namespace vanzet::modeller {

/// "progress 0.25"; the fraction is that of the part in work.
void ReportProgress(double done);

/// Begins a part of the work: this one of so many.
void BeginPart(std::size_t part, std::size_t parts);

/// "fault TEXT", or "missing TEXT" for a fault of the kind `kMissing`.
void ReportFault(const Fault& fault);

/// Collects the failure messages of Open CASCADE from now on, instead of printing them.
void CollectKernelMessages();

/// The first failure message as ": MESSAGE", or nothing.
std::string FirstKernelMessage();

/// Reports the progress of a piece of work, which is done between two fractions of the whole.
class ProgressReporter final : public Message_ProgressIndicator {
 public:
  ProgressReporter(double from, double to) : from_(from), to_(to) {}

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
