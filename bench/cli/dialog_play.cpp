#include "cli/dialog_play.h"

#include <cstdlib>

#include "api/module.h"
#include "project/text_file.h"

namespace vanzet::cli {

Result<std::string> PlayDialog(const std::filesystem::path& script, const std::filesystem::path& transcript,
                               api::Host& host, const Context& context) {
  VANZET_TRY(const auto module, api::FindModule(context.program));
  setenv("VANZET_SCRIPT", script.c_str(), 1);
  setenv("VANZET_TRANSCRIPT", transcript.c_str(), 1);
  VANZET_DO(api::CallModule(module, "mstart", host));
  return project::ReadTextFile(transcript, transcript.string());
}

}  // namespace vanzet::cli
