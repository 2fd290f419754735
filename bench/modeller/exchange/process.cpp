#include "modeller/exchange/process.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <cstdio>

#include "base/one_line.h"
#include "modeller/number_text.h"

namespace vanzet::modeller {
namespace {

constexpr double kStep = 0.01;  // progress is told in hundredths

std::string firstComplaint;

class Listener final : public Message_Printer {
  void send(const TCollection_AsciiString& text, const Message_Gravity gravity) const override {
    if (gravity >= Message_Fail && firstComplaint.empty()) firstComplaint = text.ToCString();
  }
};

void Tell(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fflush(stdout);
}

}  // namespace

void TellProgress(double done) {
  Tell("progress " + NumberText(done) + "\n");
}

void TellFault(const std::string& text) {
  Tell("fault " + OneLine(text) + "\n");
}

void CollectComplaints() {
  Message::DefaultMessenger()->ChangePrinters().Clear();
  Message::DefaultMessenger()->AddPrinter(new Listener());
}

std::string FirstComplaint() {
  return firstComplaint.empty() ? "" : ": " + firstComplaint;
}

void ProgressTeller::Show(const Message_ProgressScope&, const Standard_Boolean) {
  const double done = from_ + (to_ - from_) * GetPosition();
  if (done < told_ + kStep) return;
  told_ = done;
  TellProgress(done);
}

}  // namespace vanzet::modeller
