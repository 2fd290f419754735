#include "cli/standard_input.h"

#include <unistd.h>

#include <iostream>
#include <iterator>
#include <sstream>

namespace vanzet::cli {

void HintAtTerminal(const std::string& what) {
  if (isatty(STDIN_FILENO) != 0)
    std::cerr << "vanzet: type " + what + "; Ctrl+D at the start of a line ends it\n";
}

std::string ReadStandardInput(const std::string& what) {
  HintAtTerminal(what);
  return {std::istreambuf_iterator<char>(std::cin), {}};
}

Result<void> LoadPicks(const std::string& file, api::Host& host) {
  if (file.empty()) return {};
  if (file == "-") {
    std::istringstream text(ReadStandardInput("the picks"));
    VANZET_TRY(auto picks, drawing::Picks::Read(text, "standard input"));
    host.picks = std::make_unique<drawing::Picks>(std::move(picks));
    return {};
  }
  VANZET_TRY(auto picks, drawing::Picks::ReadFile(file));
  host.picks = std::make_unique<drawing::Picks>(std::move(picks));
  return {};
}

}  // namespace vanzet::cli
