#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_dialog.h"

namespace vanzet::test {

/// File dialogs answered from a queue while it lives; without a choice they are cancelled. It keeps what was
/// asked.
class FileChoices : private platform::FilePresenter {
 public:
  std::vector<platform::FileQuestion> asked;
  std::deque<std::optional<std::string>> choices;

 private:
  std::optional<std::string> Choose(const platform::FileQuestion& question) override {
    asked.push_back(question);
    if (choices.empty()) return std::nullopt;
    auto choice = std::move(choices.front());
    choices.pop_front();
    return choice;
  }

  platform::FilePresenterScope scope_{*this};
};

}  // namespace vanzet::test
