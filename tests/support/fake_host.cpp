#include "support/fake_host.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <utility>

#include "support/fake_host_functions.h"

namespace vanzet::test {
namespace {

FakeHost* current = nullptr;

void* Find(void* module, const char* name) {
  FakeHost& host = FakeHost::Current();
  host.lookUps.emplace_back(name);
  return module != host::HostModuleHandle || host.missing.contains(name) ? nullptr : FakeFunction(name);
}

}  // namespace

FakeHost::FakeHost()
    : formerFunctions_(std::exchange(host::hostFunctions, {})),
      formerFinder_(std::exchange(host::symbolFinder, Find)),
      former_(std::exchange(current, this)),
      presenter_(*this) {}

FakeHost::~FakeHost() {
  host::hostFunctions = formerFunctions_;
  host::symbolFinder = formerFinder_;
  current = former_;
}

FakeHost& FakeHost::Current() {
  return *current;
}

std::vector<std::string> FakeHost::TakeBoxes() {
  std::vector<std::string> taken;
  for (const platform::MessageBox& box : std::exchange(boxes, {})) {
    taken.push_back(box.caption + "|" + box.text + "|" + std::to_string(box.type));
  }
  return taken;
}

std::vector<std::string> FakeHost::TakeCalls(const std::string& prefix) {
  std::vector<std::string> taken = std::exchange(calls, {});
  std::erase_if(taken, [&](const std::string& call) { return !call.starts_with(prefix); });
  return taken;
}

FakeHost::Record FakeHost::ItemsOf(std::uint32_t vdm, std::size_t record) {
  const auto found = vdms.find(vdm);
  if (found == vdms.end() || record >= found->second.records.size()) return {};
  return found->second.records[record];
}

FakeHost::Vdm* FakeHost::Open(std::uint32_t handle) {
  const auto found =
      std::ranges::find_if(vdms, [&](const auto& entry) { return entry.second.handle == handle; });
  return handle == 0 || found == vdms.end() ? nullptr : &found->second;
}

FakeHost::Record* FakeHost::Current(Vdm* vdm) {
  if (vdm == nullptr || vdm->record < 0) return nullptr;
  const auto record = static_cast<std::size_t>(vdm->record);
  return record < vdm->records.size() ? &vdm->records[record] : nullptr;
}

void* FakeHost::WindowOf(std::int32_t selector) {
  static char windows[8];
  return &windows[selector & 7];
}

std::int32_t FakeHost::Present(const platform::MessageBox& message) {
  boxes.push_back(message);
  if (!platform::IsQuestion(message.type) || answers.empty()) return platform::SafeAnswer(message.type);
  const std::int32_t answer = answers.front();
  answers.pop_front();
  return answer;
}

}  // namespace vanzet::test
