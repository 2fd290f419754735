#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>

#include "cli/arguments.h"
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

/// A VDM and a file, in the order of the command, with the project among them.
struct Operands {
  std::filesystem::path project;
  std::int32_t number;
  std::string file;
};

Operands ReadOperands(const Arguments& arguments, std::size_t numberAt) {
  const SplitWords split = SplitOperands(arguments.words, 2);
  return {split.project, NumberOf("NUMBER", split.words[numberAt]),
          FileOf("FILE", split.words[1 - numberAt])};
}

Result<void> Save(const Operands& operands, const Context& context) {
  const auto project = project::Project::Open(operands.project, context.share);
  if (!project) return project.fault();
  const vdm::VdmStore store(project->folder());
  const auto content = store.Snapshot(operands.number);
  if (!content) return content.fault();
  const auto file = project->paths().Resolve(operands.file);
  if (const auto target = store.CheckTarget(file); !target) return target;
  if (const auto written = vdm::WriteVdmFile(file, *content); !written) return written;
  return Print("saved VDM " + std::to_string(operands.number) + ", " + Counted(content->Size(), "record") +
               ", to " + file.string() + "\n");
}

Result<void> Load(const Operands& operands, const Context& context) {
  const auto project = project::Project::Open(operands.project, context.share);
  if (!project) return project.fault();
  const auto file = project->paths().Resolve(operands.file);
  const auto content = vdm::ReadVdmFile(file);
  if (!content) return content.fault();
  vdm::VdmStore store(project->folder());
  if (const auto kept = store.Replace(operands.number, *content); !kept) return kept;
  return Print("loaded VDM " + std::to_string(operands.number) + ", " + Counted(content->Size(), "record") +
               ", from " + file.string() + "\n");
}

Result<void> Check(const std::string& file, bool json) {
  const auto content = vdm::ReadVdmFile(PathMap::OfProcess().Resolve(file));
  if (!content) return content.fault();
  std::size_t items = 0;
  for (std::size_t i = 0; i < content->Size(); ++i) {
    const auto record = content->Read(i);
    if (!record) return record.fault();
    items += (*record)->Size();
  }
  if (json) return PrintJson({{"file", file}, {"records", content->Size()}, {"items", items}});
  return Print(file + ": " + Counted(content->Size(), "record") + ", " + Counted(items, "item") + "\n");
}

using Work = std::function<Result<void>()>;

struct Row {
  const char* name;
  const char* help;
  const char* operands;
  int least;
  int most;
  Work (*prepare)(const Arguments&, const Context&);  ///< wrong operands are thrown to the parser
  const char* example;
};

constexpr Row kRows[] = {
    {"save", "Saves a VDM to a .vdm file.", "[PROJECT] NUMBER FILE", 2, 3,
     [](const Arguments& arguments, const Context& context) -> Work {
       return [&context, operands = ReadOperands(arguments, 0)] { return Save(operands, context); };
     },
     "vanzet vdm save lathe 1000 job.vdm"},
    {"load", "Puts a .vdm file in the place of a VDM. A file that is refused leaves the VDM as it was.",
     "[PROJECT] FILE NUMBER", 2, 3,
     [](const Arguments& arguments, const Context& context) -> Work {
       return [&context, operands = ReadOperands(arguments, 1)] { return Load(operands, context); };
     },
     "vanzet vdm load lathe job.vdm 1000"},
    {"check", "Reads a .vdm file and counts what is in it.", "FILE", 1, 1,
     [](const Arguments& arguments, const Context&) -> Work {
       return
           [file = FileOf("FILE", arguments.words[0]), json = arguments.json] { return Check(file, json); };
     },
     "vanzet vdm check job.vdm"},
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
    command->callback([=, &context] { context.run = row.prepare(*arguments, context); });
  }
}

}  // namespace vanzet::cli
