#include "modeller/exchange/process.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "base/number_text.h"
#include "base/one_line.h"
#include "modeller/exchange/sanitizer.h"

namespace vanzet::modeller {
namespace {

constexpr double kStep = 0.01;  // progress is reported in hundredths

std::string firstMessage;

/// The part of the work that is being done, as fractions of the whole.
struct Part {
  double from = 0, to = 1;
};
Part currentPart;
Part currentStage;  ///< as fractions of the part

class Listener final : public Message_Printer {
  void send(const TCollection_AsciiString& text, const Message_Gravity gravity) const override {
    if (gravity >= Message_Fail && firstMessage.empty()) firstMessage = text.ToCString();
  }
};

void PrintLine(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fflush(stdout);
}

void Limit(__rlimit_resource resource, std::uint64_t most, std::uint64_t beyond = 0) {
  rlimit limit = {};
  if (getrlimit(resource, &limit) != 0) return;
  limit.rlim_max = std::min<rlim_t>(limit.rlim_max, most + beyond);
  limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, most);
  setrlimit(resource, &limit);
}

/// Whether nobody reads the reports any more: the parent ended before this process asked to end with it.
bool IsAlone() {
  pollfd reports = {STDOUT_FILENO, 0, 0};
  return poll(&reports, 1, 0) > 0 && (reports.revents & POLLERR) != 0;
}

}  // namespace

void ReportProgress(double done) {
  const double ofPart = std::lerp(currentStage.from, currentStage.to, done);
  PrintLine("progress " + NumberText(std::lerp(currentPart.from, currentPart.to, ofPart)) + "\n");
}

void BeginPart(std::size_t part, std::size_t parts) {
  const auto all = static_cast<double>(parts);
  currentPart = {static_cast<double>(part) / all, static_cast<double>(part + 1) / all};
  currentStage = {};
}

void BeginStage(double from, double to) {
  currentStage = {from, to};
  ReportProgress(0);
}

void ReportCoarse() {
  PrintLine("coarse\n");
}

void ReportFault(const Fault& fault) {
  const char* const word = fault.kind == FaultKind::kMissing ? "missing " : "fault ";
  PrintLine(word + OneLine(fault.text) + "\n");
}

void CollectKernelMessages() {
  Message::DefaultMessenger()->ChangePrinters().Clear();
  Message::DefaultMessenger()->AddPrinter(new Listener());
}

std::string FirstKernelMessage() {
  return firstMessage.empty() ? "" : ": " + firstMessage;
}

void ProgressReporter::Show(const Message_ProgressScope&, Standard_Boolean) {
  const double done = from_ + (to_ - from_) * GetPosition();
  if (done < reported_ + kStep) return;
  reported_ = done;
  ReportProgress(done);
}

void LimitProcess(int seconds, std::uint64_t bytes) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (IsAlone()) std::_Exit(EXIT_FAILURE);
  signal(SIGINT, SIG_IGN);
  // A write beyond the limit then fails and can be reported.
  signal(SIGXFSZ, SIG_IGN);
  Limit(RLIMIT_CORE, 0);
  // At the lower bound comes SIGXCPU, by which the parent knows the limit from a crash; at the upper SIGKILL.
  Limit(RLIMIT_CPU, static_cast<std::uint64_t>(seconds), 1);
  Limit(RLIMIT_FSIZE, bytes);
  if (!kHasAddressSanitizer) Limit(RLIMIT_AS, bytes);
}

}  // namespace vanzet::modeller
