#include <set>

#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/copied_files.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "project/catalogue.h"
#include "project/project.h"
#include "project/project_store.h"
#include "project/settings_file.h"

/// The command that copies a project to another one, from engine to engine.
namespace vanzet::cli {
namespace {

/// The name of a catalogue unless a project says otherwise.
constexpr const char* kUsualCatalogue = "clampdevice.cld";

struct CopyArguments {
  std::string from, to;
  std::string project;  ///< its name on a server; empty: that of the folder
};

/// A connection text may hold a password, so that it is not shown.
Result<CopyEnd> EndOf(const std::string& word, const Context& context) {
  if (project::IsConnectionText(word)) {
    return CopyEnd{.store = {.connection = word},
                   .shop = {.file = kUsualCatalogue, .connection = word},
                   .word = "the server"};
  }
  VANZET_TRY(const auto project, project::Project::Open(word, context.places.share));
  VANZET_TRY(const auto setting, project::SettingsFile(project.folder()).Value(project::kCatalogueSetting));
  return CopyEnd{project.settings().store, catalogue::PlaceOf(project, setting), project.folder(),
                 OneLine(word)};
}

/// A place on a server has the names that the folder at the other end has.
Result<void> NameProjects(const CopyArguments& arguments, CopyEnd& from, CopyEnd& to) {
  if (from.IsServer() && to.IsServer() && arguments.project.empty()) {
    return Fault{"--project is missing: no folder gives the project's name on the servers"};
  }
  if (!from.IsServer() && !to.IsServer() && !arguments.project.empty()) {
    return Fault{"--project has no effect: neither FROM nor TO is a connection text"};
  }
  const CopyEnd& folder = to.IsServer() ? from : to;
  const std::string name = arguments.project.empty() ? folder.store.project : arguments.project;
  const auto catalogue = folder.shop.file.filename();
  for (CopyEnd* const end : {&from, &to}) {
    if (!end->IsServer()) continue;
    end->store.project = name;
    end->shop.file = catalogue;
  }
  return {};
}

bool IsSame(const CopyEnd& from, const CopyEnd& to) {
  const bool isEmbedded = from.store.connection.empty() && to.store.connection.empty();
  if (isEmbedded) return from.folder == to.folder;
  return from.store.connection == to.store.connection && from.store.project == to.store.project;
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

/// Whether a store has what a copy has written, although the system failed at its last call.
bool HasGenerations(const CopyEnd& end) {
  const auto amount = AmountOf(project::StoreAt(end.store, end.folder));
  return amount && amount->generations > 0;
}

std::string LineOf(const Amount& amount, const CopyEnd& to) {
  return "copied " + Counted(amount.vdms.size(), "VDM") + " with " +
         Counted(amount.generations, "generation") + " to " + to.word + "\n";
}

Result<void> Copy(const CopyArguments& arguments, const Context& context) {
  VANZET_TRY(auto from, EndOf(arguments.from, context));
  VANZET_TRY(auto to, EndOf(arguments.to, context));
  VANZET_DO(NameProjects(arguments, from, to));
  if (IsSame(from, to)) return Fault{"is the project to copy from", to.word};
  const vdm::VdmStore source = project::StoreAt(from.store, from.folder);
  VANZET_TRY(const auto amount, AmountOf(source));
  if (amount.generations == 0) {
    return Fault{.text = "has no VDMs to copy", .file = from.word, .kind = FaultKind::kMissing};
  }
  vdm::VdmStore target = project::StoreAt(to.store, to.folder);
  target.WaitAtMost(context.wait);
  CopiedFiles files;
  std::vector<std::string> notes;
  // The files come before the store: a copy that ends between them finds an empty store when it is repeated.
  const auto lastStep = [&]() -> Result<void> {
    VANZET_TRY(notes, files.Prepare(from, to));
    VANZET_DO(Print(LineOf(amount, to)));
    return files.Commit();
  };
  const auto fill = [&] {
    auto filled = target.Fill(source, lastStep);
    if (!filled && !HasGenerations(to)) files.Withdraw();
    return filled;
  };
  VANZET_DO(KeepRun(fill));
  for (const std::string& note : notes) Announce(note);
  return {};
}

}  // namespace

void AddStoreCopy(Command& store, Context& context) {
  const auto arguments = std::make_shared<CopyArguments>();
  Command& command =
      store.AddCommand("copy", "Copies a project with its generations to another one, whose store is empty.");
  command
      .AddOperand("FROM", "the project's folder, or the connection text of a PostgreSQL server",
                  StoreFile(arguments->from))
      .Required();
  command.AddOperand("TO", "the same of the other project", StoreFile(arguments->to)).Required();
  command.AddOption("--project", "NAME", "the project's name on the server; without it that of the folder",
                    StoreText(arguments->project));
  AddWait(command, context);
  command.notes =
      "The drawing and the catalogue are copied, too; settings, bodies and figures are not. A catalogue that "
      "is there\nstays: a server gets the devices that it lacks, a folder keeps its own beside the new one.";
  command.examples = {"vanzet store copy lathe lathe-2",
                      "vanzet store copy lathe postgresql://shop@db/vanzet"};
  command.work = [=, &context] { return Copy(*arguments, context); };
}

}  // namespace vanzet::cli
