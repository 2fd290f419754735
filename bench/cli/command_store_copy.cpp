#include <filesystem>
#include <set>

#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "project/project.h"
#include "project/project_store.h"

/// The command that copies the VDMs of a project to another project, from engine to engine.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

struct CopyArguments {
  std::string from, to;
  std::string project;  ///< its name on a server; empty: that of the folder
};

/// One end of a copy.
struct End {
  project::StorePlace place;
  fs::path folder;   ///< empty: the place alone is known
  std::string word;  ///< as a person is shown it
};

/// A connection text may hold a password, so that it is not shown.
Result<End> EndOf(const std::string& word, const Context& context) {
  if (project::IsConnectionText(word)) return End{{.connection = word}, {}, "the server"};
  VANZET_TRY(const auto project, project::Project::Open(word, context.places.share));
  return End{project.settings().store, project.folder(), OneLine(word)};
}

bool IsServer(const End& end) {
  return end.folder.empty();
}

Result<void> NameProjects(const CopyArguments& arguments, End& from, End& to) {
  if (IsServer(from) && IsServer(to) && arguments.project.empty()) {
    return Fault{"--project is missing: no folder gives the project's name on the servers"};
  }
  if (!IsServer(from) && !IsServer(to) && !arguments.project.empty()) {
    return Fault{"--project has no effect: neither FROM nor TO is a connection text"};
  }
  const std::string name = !arguments.project.empty() ? arguments.project
                           : IsServer(to)             ? from.place.project
                                                      : to.place.project;
  for (End* const end : {&from, &to}) {
    if (IsServer(*end)) end->place.project = name;
  }
  return {};
}

bool IsSame(const End& from, const End& to) {
  const bool isEmbedded = from.place.connection.empty() && to.place.connection.empty();
  if (isEmbedded) return from.folder == to.folder;
  return from.place.connection == to.place.connection && from.place.project == to.place.project;
}

struct Amount {
  std::set<vdm::Number> vdms;
  std::size_t generations = 0;
};

Result<Amount> AmountOf(const vdm::VdmStore& store) {
  Amount amount;
  VANZET_DO(store.Visit({}, [&](const vdm::PastGeneration& past) {
    ++amount.generations;
    for (const auto& [number, content] : past.vdms) amount.vdms.insert(number);
    return Result<void>();
  }));
  return amount;
}

Result<void> Copy(const CopyArguments& arguments, const Context& context) {
  VANZET_TRY(auto from, EndOf(arguments.from, context));
  VANZET_TRY(auto to, EndOf(arguments.to, context));
  VANZET_DO(NameProjects(arguments, from, to));
  if (IsSame(from, to)) return Fault{"is the project to copy from", to.word};
  const vdm::VdmStore source = project::StoreAt(from.place, from.folder);
  VANZET_TRY(const auto amount, AmountOf(source));
  if (amount.generations == 0) {
    return Fault{.text = "has no VDMs to copy", .file = from.word, .kind = FaultKind::kMissing};
  }
  vdm::VdmStore target = project::StoreAt(to.place, to.folder);
  target.WaitAtMost(context.wait);
  const std::string line = "copied " + Counted(amount.vdms.size(), "VDM") + " with " +
                           Counted(amount.generations, "generation") + " to " + to.word + "\n";
  return KeepRun([&] { return target.Fill(source, [&] { return Print(line); }); });
}

}  // namespace

void AddStoreCopy(Command& store, Context& context) {
  const auto arguments = std::make_shared<CopyArguments>();
  Command& command = store.AddCommand(
      "copy", "Copies all VDMs with their generations to another project, whose store is empty.");
  command
      .AddOperand("FROM", "the project's folder, or the connection text of a PostgreSQL server",
                  StoreFile(arguments->from))
      .Required();
  command.AddOperand("TO", "the same of the other project", StoreFile(arguments->to)).Required();
  command.AddOption("--project", "NAME", "the project's name on the server; without it that of the folder",
                    StoreText(arguments->project));
  AddWait(command, context);
  command.notes = "The drawing, the catalogue and the settings are files of the folder; they are not copied.";
  command.examples = {"vanzet store copy lathe lathe-2",
                      "vanzet store copy lathe postgresql://shop@db/vanzet"};
  command.work = [=, &context] { return Copy(*arguments, context); };
}

}  // namespace vanzet::cli
