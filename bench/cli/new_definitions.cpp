#include "cli/new_definitions.h"

#include <algorithm>

namespace vanzet::cli {

NewDefinitions::~NewDefinitions() {
  for (const Former& former : formers_) {
    const auto done =
        former.content ? store_.Replace(former.number, *former.content) : store_.Delete(former.number);
    if (!done) panel_.Tell(Fault{"what was there before could not be put back: " + done.fault().Message()});
  }
}

Result<void> NewDefinitions::Make(std::uint32_t number) {
  Former former{number, std::nullopt};
  VANZET_TRY(const auto numbers, store_.Numbers());
  if (std::ranges::find(numbers, vdm::Number{number}) != numbers.end()) {
    VANZET_TRY(auto content, store_.Snapshot(number));
    former.content = std::move(content);
  }
  VANZET_DO(store_.Replace(number, blank_));
  formers_.push_back(std::move(former));
  return {};
}

}  // namespace vanzet::cli
