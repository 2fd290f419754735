#include <CLI/CLI.hpp>

#include "base/numbers.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "vdm/store.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::vector<std::string> words;
  bool json = false;
};

Result<std::int32_t> NumberOf(const std::string& word) {
  if (const auto number = WholeInteger(word); number && *number >= 0) return *number;
  return Fault{"expected the number of a VDM, found '" + word + "'"};
}

Result<void> Save(const Arguments& arguments, const Context& context) {
  const Operands operands = SplitOperands(arguments.words, 2);
  const auto number = NumberOf(operands.words[0]);
  if (!number) return number.fault();
  const auto project = project::Project::Open(operands.project, context.share);
  if (!project) return project.fault();
  const vdm::VdmStore store(project->folder());
  const auto content = store.Snapshot(*number);
  if (!content) return content.fault();
  const auto file = project->paths().Resolve(operands.words[1]);
  if (const auto written = vdm::WriteVdmFile(file, *content); !written) return written;
  return Print("saved VDM " + operands.words[0] + ", " + Counted(content->Size(), "record") + ", to " +
               file.string() + "\n");
}

Result<void> Load(const Arguments& arguments, const Context& context) {
  const Operands operands = SplitOperands(arguments.words, 2);
  const auto number = NumberOf(operands.words[1]);
  if (!number) return number.fault();
  const auto project = project::Project::Open(operands.project, context.share);
  if (!project) return project.fault();
  const auto file = project->paths().Resolve(operands.words[0]);
  const auto content = vdm::ReadVdmFile(file);
  if (!content) return content.fault();
  vdm::VdmStore store(project->folder());
  if (const auto kept = store.Replace(*number, *content); !kept) return kept;
  return Print("loaded VDM " + operands.words[1] + ", " + Counted(content->Size(), "record") + ", from " +
               file.string() + "\n");
}

Result<void> Check(const Arguments& arguments) {
  const std::string& file = arguments.words[0];
  const auto content = vdm::ReadVdmFile(PathMap::OfProcess().Resolve(file));
  if (!content) return content.fault();
  std::size_t items = 0;
  for (std::size_t i = 0; i < content->Size(); ++i) {
    const auto record = content->Read(i);
    if (!record) return record.fault();
    items += (*record)->Size();
  }
  if (arguments.json) return PrintJson({{"file", file}, {"records", content->Size()}, {"items", items}});
  return Print(file + ": " + Counted(content->Size(), "record") + ", " + Counted(items, "item") + "\n");
}

struct Row {
  const char* name;
  const char* help;
  const char* operands;
  int least;
  int most;
  Result<void> (*run)(const Arguments&, const Context&);
  const char* example;
};

constexpr Row kRows[] = {
    {"save", "Saves a VDM to a .vdm file.", "[PROJECT] NUMBER FILE", 2, 3, Save,
     "vanzet vdm save lathe 1000 job.vdm"},
    {"load", "Puts a .vdm file in the place of a VDM. A file that is refused leaves the VDM as it was.",
     "[PROJECT] FILE NUMBER", 2, 3, Load, "vanzet vdm load lathe job.vdm 1000"},
    {"check", "Reads a .vdm file and counts what is in it.", "FILE", 1, 1,
     [](const Arguments& arguments, const Context&) { return Check(arguments); }, "vanzet vdm check job.vdm"},
};

}  // namespace

void AddVdm(CLI::App& app, Context& context) {
  CLI::App* const vdm = app.add_subcommand("vdm", "Stores to and from .vdm files.");
  vdm->require_subcommand(1);
  vdm->footer("Example:\n  vanzet vdm save lathe 1000 job.vdm");
  for (const Row& row : kRows) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = vdm->add_subcommand(row.name, row.help);
    command->add_option(row.operands, arguments->words)->required()->expected(row.least, row.most);
    if (row.least == 1) command->add_flag("--json", arguments->json, "for programs");
    command->footer(std::string("Example:\n  ") + row.example);
    command->callback(
        [=, &context] { context.run = [=, &context] { return row.run(*arguments, context); }; });
  }
}

}  // namespace vanzet::cli
