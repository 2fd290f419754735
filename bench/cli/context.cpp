#include "cli/context.h"

#include <cstdlib>
#include <iostream>
#include <system_error>

namespace vanzet::cli {

void StandardErrorPanel::Show(const std::string& line) {
  std::cerr << "vanzet: " + line + "\n" << std::flush;
}

std::unique_ptr<Context> MakeContext() {
  auto context = std::make_unique<Context>();
  std::error_code error;
  context->program = std::filesystem::read_symlink("/proc/self/exe", error);
  const char* const share = std::getenv("VANZET_SHARE");
  context->share = share != nullptr ? std::filesystem::path(share)
                                    : context->program.parent_path().parent_path() / "share" / "vanzet";
  return context;
}

Operands SplitOperands(const std::vector<std::string>& words, std::size_t count) {
  Operands operands{".", words};
  if (words.size() != count + 1) return operands;
  std::error_code error;
  const auto project =
      std::filesystem::is_directory(words.front(), error) ? operands.words.begin() : operands.words.end() - 1;
  operands.project = *project;
  operands.words.erase(project);
  return operands;
}

Result<std::unique_ptr<Session>> OpenSession(const std::filesystem::path& folder,
                                             const std::string& traceFile, Context& context) {
  auto project = project::Project::Open(folder, context.share);
  if (!project) return project.fault();
  std::unique_ptr<api::Trace> trace;
  if (!traceFile.empty()) {
    auto opened = api::Trace::To(traceFile);
    if (!opened) return opened.fault();
    trace = std::move(*opened);
  }
  auto session = std::make_unique<Session>(Session{std::move(*project), nullptr});
  session->host = std::make_unique<api::Host>(session->project, context.panel, std::move(trace));
  return session;
}

}  // namespace vanzet::cli
