#include "cli/new_definitions.h"

#include <algorithm>

namespace vanzet::cli {

NewDefinitions::~NewDefinitions() {
  for (const Former& former : formers_) {
    // What cannot be put back now is in another process's hands; there is nobody left to tell.
    const auto done =
        former.content ? store_.Replace(former.number, *former.content) : store_.Delete(former.number);
    static_cast<void>(done);
  }
}

Result<void> NewDefinitions::Make(std::uint32_t number) {
  Former former{number, std::nullopt};
  const auto numbers = store_.Numbers();
  if (!numbers) return numbers.fault();
  if (std::ranges::find(*numbers, vdm::Number{number}) != numbers->end()) {
    auto content = store_.Snapshot(number);
    if (!content) return content.fault();
    former.content = std::move(*content);
  }
  if (const auto made = store_.Replace(number, blank_); !made) return made;
  formers_.push_back(std::move(former));
  return {};
}

}  // namespace vanzet::cli
