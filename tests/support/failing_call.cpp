#include "support/failing_call.h"

#include <utility>

#include "support/fake_host_functions.h"

namespace vanzet::test {
namespace {

/// The name that was looked up last while everything was missing.
std::string missedName;

void* FindNothing(void* /*module*/, const char* name) {
  const bool isFallback = std::string(name) == "OrvoMissingAPI";
  if (!isFallback) missedName = name;
  return isFallback ? FakeFunction(name) : nullptr;
}

}  // namespace

FailingCall::FailingCall(FakeHost& host, Failure failure, int number)
    : host_(host), failure_(failure), number_(number) {
  host_.onCall = [this](const std::string& name) { Called(name); };
  if (failure_ == Failure::kMissing && number_ == 1) Refuse("");
}

FailingCall::~FailingCall() {
  PutBack();
  host_.onCall = nullptr;
}

void FailingCall::Called(const std::string& name) {
  ++calls_;
  if (calls_ == number_) name_ = failure_ == Failure::kMissing ? missedName : name;
  const bool isOver = calls_ == (failure_ == Failure::kMissing ? number_ : number_ + 1);
  if (isOver) PutBack();
  // What is missing has to be so before it is looked up.
  if (calls_ == (failure_ == Failure::kMissing ? number_ - 1 : number_)) Refuse(name);
}

void FailingCall::Refuse(const std::string& name) {
  if (failure_ == Failure::kMissing) {
    const auto finder = std::exchange(host::symbolFinder, FindNothing);
    host::hostFunctions = {};
    putBack_ = [finder] {
      host::symbolFinder = finder;
      host::hostFunctions = {};
    };
  } else if (name == "OrvoMacroVdmExists") {
    const auto flag = std::exchange(host_.existsFlag, 0);
    putBack_ = [this, flag] { host_.existsFlag = flag; };
  } else if (name == "OrvoMacroVdmOpen") {
    host_.refusesOpen = true;
    putBack_ = [this] { host_.refusesOpen = false; };
  } else if (name == "OrvoMacroVdmCheckOpen") {
    const std::string call = host_.calls.back();
    const auto number = static_cast<std::uint32_t>(std::stoul(call.substr(call.find('(') + 1)));
    host_.checkOpenFlag = host_.vdms[number].handle == 0 ? 1 : 0;
    putBack_ = [this] { host_.checkOpenFlag.reset(); };
  } else if (name == "OrvoReadGlobalI") {
    putBack_ = [this, kept = std::exchange(host_.integers, {})] { host_.integers = kept; };
  } else if (name == "OrvoReadGlobal$" || name == "OrvoWriteGlobal$") {
    putBack_ = [this, kept = std::exchange(host_.texts, {})] { host_.texts = kept; };
  }
}

void FailingCall::PutBack() {
  if (const auto putBack = std::exchange(putBack_, nullptr)) putBack();
}

}  // namespace vanzet::test
