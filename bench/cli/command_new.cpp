#include "cli/arguments.h"
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
  VANZET_DO(project::MakeProject(arguments.folder, arguments.sample, context.share));
  return Print("made the project " + arguments.folder + " from the sample " + arguments.sample + "\n");
}

}  // namespace

void AddNew(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("new", "Makes a project folder that works at once.");
  command.AddOperand("DIR", "the folder to make", StoreText(arguments->folder)).Required();
  command.AddOption("--sample", "NAME", "the sample to begin with", StoreText(arguments->sample))
      .Default(arguments->sample);
  command.examples = {"vanzet new lathe --sample mill-turn"};
  command.work = [=, &context] { return New(*arguments, context); };
}

}  // namespace vanzet::cli
