#include <algorithm>
#include <optional>

#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "history/history.h"
#include "history/item_changes.h"
#include "project/project.h"
#include "project/project_store.h"

/// The commands on the generations of a project.
namespace vanzet::cli {
namespace {

using history::Difference;
using history::Entry;
using history::History;

/// The words of the command line: numbers of generations, and the project before or after them.
struct GenerationWords {
  std::string project = ".";
  std::vector<std::int32_t> generations;
};

GenerationWords ReadGenerationWords(const std::vector<std::string>& words) {
  GenerationWords read;
  bool hasProject = false;
  for (const std::string& word : words) {
    if (WholeInteger(word)) {
      read.generations.push_back(IntegerOf("GENERATION", word, 1, INT32_MAX));
      continue;
    }
    if (hasProject) throw WrongUsage{"GENERATION", "expected a number, found " + OneLine("'" + word + "'")};
    read.project = word;
    hasProject = true;
  }
  return read;
}

struct Arguments {
  std::vector<std::string> words;
  GenerationWords read;
  std::optional<std::int32_t> vdm;
  bool json = false, isRaw = false, isDryRun = false;
};

Result<std::optional<vdm::Number>> VdmOf(const Arguments& arguments) {
  if (!arguments.vdm) return std::optional<vdm::Number>();
  VANZET_TRY(const auto number, vdm::NumberFrom(*arguments.vdm));
  return std::optional(number);
}

std::int64_t Plain(vdm::Number number) {
  return static_cast<std::int64_t>(number);
}

// 'history'.

Json ToJson(const std::vector<Entry>& entries) {
  Json list = Json::array();
  for (const Entry& entry : entries) {
    const vdm::Generation& generation = entry.change.generation;
    list.push_back({{"generation", generation.number},
                    {"vdm", Plain(entry.change.vdm)},
                    {"time", generation.time},
                    {"user", generation.user},
                    {"host", generation.host},
                    {"occasion", generation.occasion},
                    {"changes", entry.words}});
  }
  return {{"generations", list}};
}

/// A line for each generation, and below it what it changed.
std::string TextOf(const std::vector<Entry>& entries) {
  std::string text;
  std::int64_t last = 0;
  for (const Entry& entry : entries) {
    const vdm::Generation& generation = entry.change.generation;
    if (generation.number != last) {
      text += OneLine("generation " + std::to_string(generation.number) + "  " + generation.time + "  " +
                      generation.user + "@" + generation.host + "  " + generation.occasion) +
              "\n";
    }
    last = generation.number;
    for (const std::string& words : entry.words)
      text += OneLine("  " + vdm::NameOf(entry.change.vdm) + ", " + words) + "\n";
  }
  return text.empty() ? "no generation was stored yet\n" : text;
}

Result<void> List(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.read.project, context.places.share));
  VANZET_TRY(const auto only, VdmOf(arguments));
  vdm::VdmStore store = project::StoreOf(project);
  VANZET_TRY(const auto entries, History(store).List(only));
  return arguments.json ? PrintJson(ToJson(entries)) : Print(TextOf(entries));
}

// 'diff'.

/// The words about a difference, without the VDM.
Result<std::vector<std::string>> WordsOf(const Difference& difference) {
  VANZET_TRY(const auto before, history::Reading::Of(difference.before));
  VANZET_TRY(const auto now, history::Reading::Of(difference.now));
  return history::ChangesInWords(before, now, history::Detail::kFull);
}

Result<std::vector<history::ItemChange>> ItemsOf(const Difference& difference) {
  static const vdm::Vdm kNone;
  return history::ItemChanges(difference.before.value_or(kNone), difference.now.value_or(kNone));
}

Result<std::string> LinesOf(const std::vector<Difference>& differences) {
  std::string text;
  for (const Difference& difference : differences) {
    VANZET_TRY(const auto lines, WordsOf(difference));
    for (const std::string& line : lines) text += OneLine(vdm::NameOf(difference.vdm) + ", " + line) + "\n";
  }
  return text;
}

/// "-3.1	text" for what was there, "+3.1	text" for what is.
Result<std::string> RawLinesOf(const std::vector<Difference>& differences) {
  std::string text;
  for (const Difference& difference : differences) {
    text += vdm::NameOf(difference.vdm) + "\n";
    VANZET_TRY(const auto items, ItemsOf(difference));
    for (const history::ItemChange& change : items) {
      const std::string place = std::to_string(change.record) + "." + std::to_string(change.item) + "\t";
      if (change.before) text += "-" + place + EscapedItem(*change.before) + "\n";
      if (change.now) text += "+" + place + EscapedItem(*change.now) + "\n";
    }
  }
  return text;
}

Result<Json> ToJson(const std::vector<Difference>& differences, bool isRaw) {
  const auto textOf = [](const auto& text) { return text ? Json(*text) : Json(); };
  Json vdms = Json::array();
  for (const Difference& difference : differences) {
    Json& vdm = vdms.emplace_back(Json{{"vdm", Plain(difference.vdm)}});
    VANZET_TRY(vdm["changes"], WordsOf(difference));
    if (!isRaw) continue;
    VANZET_TRY(const auto items, ItemsOf(difference));
    vdm["items"] = Json::array();
    for (const history::ItemChange& change : items) {
      vdm["items"].push_back({{"record", change.record},
                              {"item", change.item},
                              {"before", textOf(change.before)},
                              {"now", textOf(change.now)}});
    }
  }
  return vdms;
}

/// Two generations to compare.
struct Pair {
  std::int64_t before, now;
};

/// Those of the command line; without the second the last one, without both the last two.
Result<Pair> PairOf(const Arguments& arguments, const vdm::VdmStore& store, const History& history,
                    std::optional<vdm::Number> only) {
  const auto& given = arguments.read.generations;
  if (given.size() == 2) return Pair{given[0], given[1]};
  VANZET_TRY(const std::int64_t last, history.Last());
  if (given.size() == 1) return Pair{given[0], last};
  VANZET_TRY(const auto changes, store.ListChanges(only));
  std::vector<std::int64_t> numbers;
  for (const vdm::VdmChange& change : changes) numbers.push_back(change.generation.number);
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  if (numbers.size() >= 2) return Pair{numbers[numbers.size() - 2], numbers.back()};
  return Fault{.text = "fewer than two generations are kept; there is nothing to compare",
               .kind = FaultKind::kMissing};
}

Result<std::string> DifferencesText(const std::vector<Difference>& differences, const Pair& pair,
                                    bool isRaw) {
  if (!differences.empty()) return isRaw ? RawLinesOf(differences) : LinesOf(differences);
  return "generations " + std::to_string(pair.before) + " and " + std::to_string(pair.now) +
         " are the same\n";
}

Result<void> Diff(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.read.project, context.places.share));
  VANZET_TRY(const auto only, VdmOf(arguments));
  vdm::VdmStore store = project::StoreOf(project);
  const History history(store);
  VANZET_TRY(const auto pair, PairOf(arguments, store, history, only));
  VANZET_TRY(const auto differences, history.Compare(pair.before, pair.now, only));
  context.hasFindings = !differences.empty();
  if (arguments.json) {
    VANZET_TRY(auto vdms, ToJson(differences, arguments.isRaw));
    return PrintJson({{"from", pair.before}, {"to", pair.now}, {"vdms", std::move(vdms)}});
  }
  VANZET_TRY(const auto text, DifferencesText(differences, pair, arguments.isRaw));
  return Print(text);
}

// 'restore'.

Result<void> Restore(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.read.project, context.places.share));
  VANZET_TRY(const auto only, VdmOf(arguments));
  const std::int64_t generation = arguments.read.generations.front();
  const std::string name = "generation " + std::to_string(generation);
  vdm::VdmStore store = project::StoreOf(project);
  store.WaitAtMost(context.wait);
  History history(store);
  if (!arguments.isDryRun) VANZET_DO(store.Hold());
  VANZET_TRY(const auto differences,
             arguments.isDryRun ? history.CompareNow(generation, only) : history.Restore(generation, only));
  if (differences.empty()) return Print("the state is that of " + name + "; nothing was changed\n");
  VANZET_TRY(const auto lines, LinesOf(differences));
  if (arguments.isDryRun) return Print(lines + "this is what restoring " + name + " would change\n");
  return KeepRun(
      [&] { return store.Commit("restore", {}, [&] { return Print(lines + "restored " + name + "\n"); }); });
}

void AddVdmOption(Command& command, std::optional<std::int32_t>& vdm) {
  command.AddOption("--vdm", "N", "only this VDM", StoreNumber(vdm));
}

}  // namespace

void AddHistory(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "history", "Lists the generations of the project, the newest first: when, who, and what was changed.");
  AddProject(command, arguments->read.project);
  AddVdmOption(command, arguments->vdm);
  command.AddFlag("--json", "print JSON", arguments->json);
  command.notes =
      "Each run that changes the project makes a generation. The setting 'keep' in bench.ini says how many "
      "stay.";
  command.examples = {"vanzet history lathe", "vanzet history lathe --vdm 1001 --json"};
  command.work = [=, &context] { return List(*arguments, context); };
}

void AddDiff(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("diff", "Prints what changed between two generations.");
  command
      .AddOperands("[PROJECT] [A [B]]", "the generations; without B the last one, without both the last two",
                   arguments->words)
      .Count(0, 3);
  AddVdmOption(command, arguments->vdm);
  command.AddFlag("--json", "print JSON", arguments->json);
  command.AddFlag("--raw", "print the items that differ, with record.item", arguments->isRaw);
  command.notes = "The exit status is 3 when something changed.";
  command.examples = {"vanzet diff lathe", "vanzet diff lathe 3 7 --raw"};
  command.check = [=] {
    arguments->read = ReadGenerationWords(arguments->words);
    if (arguments->read.generations.size() > 2) throw WrongUsage{"GENERATION", "there are more than two"};
  };
  command.work = [=, &context] { return Diff(*arguments, context); };
}

void AddRestore(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "restore", "Makes the state after a generation the current one, as a new generation: nothing is lost.");
  command.AddOperands("[PROJECT] GENERATION", "the number, as 'vanzet history' lists it", arguments->words)
      .Required()
      .Count(1, 2);
  AddVdmOption(command, arguments->vdm);
  command.AddFlag("--dry-run", "only print what would change", arguments->isDryRun);
  AddWait(command, context).Excludes({"--dry-run"});
  command.notes =
      "The drawing stays as it is until the next OK in the dialog, or 'vanzet define', draws it again.";
  command.examples = {"vanzet restore lathe 7 --dry-run", "vanzet restore lathe 7"};
  command.check = [=] {
    arguments->read = ReadGenerationWords(arguments->words);
    if (arguments->read.generations.empty()) throw WrongUsage{"", "GENERATION is missing"};
    if (arguments->read.generations.size() > 1) throw WrongUsage{"GENERATION", "there are more than one"};
  };
  command.work = [=, &context] { return Restore(*arguments, context); };
}

}  // namespace vanzet::cli
