#include "cli/context.h"

#include "cli/progress_line.h"

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
  context->share = share != nullptr && *share != '\0'
                       ? std::filesystem::path(share)
                       : context->program.parent_path().parent_path() / "share" / "vanzet";
  return context;
}

SplitWords SplitOperands(const std::vector<std::string>& words, std::size_t count) {
  SplitWords operands{".", words};
  if (words.size() != count + 1) return operands;
  std::error_code error;
  const auto project =
      std::filesystem::is_directory(words.front(), error) ? operands.words.begin() : operands.words.end() - 1;
  operands.project = *project;
  operands.words.erase(project);
  return operands;
}

SplitWords SplitProject(const std::vector<std::string>& words) {
  std::error_code error;
  const bool named = words.size() > 1 && std::filesystem::is_directory(words.front(), error);
  if (!named) return {".", words};
  return {words.front(), {words.begin() + 1, words.end()}};
}

Result<std::unique_ptr<HostedProject>> HostProject(const std::filesystem::path& folder,
                                                   const std::string& traceFile, Context& context) {
  VANZET_TRY(auto project, project::Project::Open(folder, context.share));
  std::unique_ptr<api::Trace> trace;
  if (!traceFile.empty()) {
    VANZET_DO(vdm::VdmStore(project.folder()).CheckTarget(traceFile));
    VANZET_TRY(auto opened, api::Trace::To(traceFile));
    trace = std::move(opened);
  }
  auto hosted = std::make_unique<HostedProject>(HostedProject{std::move(project), nullptr});
  hosted->host = std::make_unique<api::Host>(hosted->project, context.panel, std::move(trace));
  hosted->host->exchange = ToldExchange();
  if (!context.keepsTmp) return hosted;
  VANZET_TRY(const auto tmp, hosted->host->runFolder.Path());
  hosted->host->runFolder.Keep();
  std::cerr << "vanzet: the files of this run stay in " + tmp.string() + "\n";
  return hosted;
}

}  // namespace vanzet::cli
