#pragma once

#include <Message_ProgressIndicator.hxx>
#include <cstdint>
#include <string>

/// What this program tells the one that started it, line by line on standard output.
namespace vanzet::modeller {

/// "progress 0.25"
void TellProgress(double done);

/// "fault TEXT"
void TellFault(const std::string& text);

/// Collects what Open CASCADE complains about from now on, instead of printing it.
void CollectComplaints();

/// The first complaint as ": what it says", or nothing.
std::string FirstComplaint();

/// Tells a work's progress between two fractions of the whole.
class ProgressTeller final : public Message_ProgressIndicator {
 public:
  ProgressTeller(double from, double to) : from_(from), to_(to) {}

 private:
  void Show(const Message_ProgressScope& scope, const Standard_Boolean isForced) override;

  double from_;
  double to_;
  double told_ = 0;
};

/// Keeps this process within its limits from now on: processor time, memory, the size of what it writes; no
/// core is left behind. It ends when its parent ends, and Ctrl-C is its parent's matter.
void KeepWithin(int seconds, std::uint64_t bytes);

}  // namespace vanzet::modeller
