#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/output.h"
#include "project/sample.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string folder;
  std::string sample = "mill-turn";
};

Result<void> New(const Arguments& arguments, const Context& context) {
  const auto made = project::MakeProject(arguments.folder, arguments.sample, context.share);
  if (!made) return made;
  return Print("made the project " + arguments.folder + " from the sample " + arguments.sample + "\n");
}

}  // namespace

void AddNew(CLI::App& app, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command = app.add_subcommand("new", "Makes a project folder that works at once.");
  command->add_option("DIR", arguments->folder, "the folder to make")->required();
  command->add_option("--sample", arguments->sample, "the sample to begin with")
      ->type_name("NAME")
      ->capture_default_str();
  command->footer("Example:\n  vanzet new lathe --sample mill-turn");
  command->callback([=, &context] { context.run = [=, &context] { return New(*arguments, context); }; });
}

}  // namespace vanzet::cli
