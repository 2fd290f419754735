#include "cli/dialog_play.h"

#include <cstdlib>

#include "api/module.h"
#include "project/text_file.h"

namespace vanzet::cli {

Result<std::string> PlayDialog(const std::filesystem::path& script, const std::filesystem::path& transcript,
                               api::Host& host, const Context& context) {
  const auto module = api::FindModule(context.program);
  if (!module) return module.fault();
  setenv("VANZET_SCRIPT", script.c_str(), 1);
  setenv("VANZET_TRANSCRIPT", transcript.c_str(), 1);
  if (const auto called = api::CallModule(*module, "mstart", host); !called) return called.fault();
  return project::ReadTextFile(transcript, transcript.string());
}

}  // namespace vanzet::cli
