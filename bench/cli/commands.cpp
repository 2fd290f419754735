#include "cli/commands.h"

namespace vanzet::cli {
namespace {

constexpr void (*kCommands[])(Command&, Context&) = {
    AddNew,    AddOpen,    AddUpgrade, AddScript,    AddShow,    AddCheck,   AddDefine,     AddItems,
    AddVdm,    AddHistory, AddDiff,    AddRestore,   AddStore,   AddCommand, AddPicture,    AddSheet,
    AddExport, AddBody,    AddDevice,  AddCatalogue, AddContour, AddHelp,    AddCompletion, AddManual,
};

}  // namespace

void DescribeProgram(Command& program, Context& context) {
  program.name = "vanzet";
  program.help =
      "Defines, checks and exports the equipment that holds the work on a turning or mill-turn machine.";
  program.notes =
      "Without PROJECT the current folder is used. Results go to standard output, everything else to "
      "standard\nerror. Exit status: 0 success, 1 the work failed, 2 wrong usage, 3 done, and something was "
      "found.\n"
      "VANZET_LANGUAGE=de shows the help and the headings of tables in German.";
  program.examples = {"vanzet new lathe && vanzet show lathe"};
  for (const auto add : kCommands) add(program, context);
}

}  // namespace vanzet::cli
