#include <optional>

#include "base/one_line.h"
#include "catalogue/check.h"
#include "catalogue/comparison.h"
#include "catalogue/merge.h"
#include "cli/catalogue/family.h"
#include "cli/catalogue/places.h"
#include "cli/catalogue/print.h"

/// The commands that check a catalogue and compare it with others.
namespace vanzet::cli {
namespace {

using catalogue::Difference;
using catalogue::Finding;
using catalogue::Merged;
using catalogue::Outcome;
using catalogue::Shop;

struct Arguments {
  std::vector<std::string> words;
  SplitWords read;
  std::string base, prefer;
  std::optional<LengthUnit> unit;
  bool isDryRun = false, isJson = false;

  std::string Project() const { return read.project.string(); }
};

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

// 'check'.

Json ToJson(const std::vector<Finding>& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings) {
    list.push_back({{"file", finding.file},
                    {"line", finding.line == 0 ? Json() : Json(finding.line)},
                    {"device", finding.device},
                    {"text", finding.text}});
  }
  return {{"findings", std::move(list)}};
}

Result<void> Check(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto shop, LoadShop(arguments.Project(), context));
  const auto findings = FindingsOf(shop);
  context.hasFindings = !findings.empty();
  if (arguments.isJson) return PrintJson(ToJson(findings));
  std::string lines;
  for (const Finding& finding : findings) lines += finding.Message() + "\n";
  return Print(findings.empty() ? "nothing was found\n" : lines);
}

// 'diff'.

Json DeviceOrNull(const Shop& shop, const catalogue::Entry* entry) {
  return entry == nullptr ? Json() : JsonOf(shop, *entry);
}

const char* WordOf(const Difference& difference) {
  if (difference.before == nullptr) return "added";
  return difference.now == nullptr ? "removed" : "changed";
}

Json ToJson(const std::vector<Difference>& differences, const Shop& before, const Shop& now,
            LengthUnit unit) {
  Json list = Json::array();
  for (const Difference& each : differences) {
    list.push_back({{"name", each.name},
                    {"change", WordOf(each)},
                    {"changes", each.changes},
                    {"before", DeviceOrNull(before, each.before)},
                    {"now", DeviceOrNull(now, each.now)}});
  }
  Json json = UnitJson(unit);
  json["differences"] = std::move(list);
  return json;
}

std::string LineOf(const Difference& difference) {
  const std::string word = Left(WordOf(difference), 9);
  if (difference.before == nullptr) return word + cli::LineOf(*difference.now);
  if (difference.now == nullptr) return word + cli::LineOf(*difference.before);
  return word + OneLine(difference.name + ": " + Joined(difference.changes));
}

Result<void> PrintDifferences(const Arguments& arguments, const std::vector<Difference>& differences,
                              const Shop& before, const Shop& now, LengthUnit unit) {
  if (arguments.isJson) return PrintJson(ToJson(differences, before, now, unit));
  std::string lines;
  for (const Difference& difference : differences) lines += LineOf(difference) + "\n";
  return Print(differences.empty() ? "both are the same\n" : lines);
}

Result<void> CompareCatalogues(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.words[0], context));
  VANZET_TRY(const auto first, LoadShop(arguments.words[0], context));
  VANZET_TRY(const auto second, LoadShop(arguments.words[1], context));
  const Shop before = first.ShownIn(unit), now = second.ShownIn(unit);
  const auto differences = DifferencesOf(before, now);
  context.hasFindings = !differences.empty();
  return PrintDifferences(arguments, differences, before, now, unit);
}

Result<void> CompareDevices(const Arguments& arguments, Context& context) {
  const std::string &first = arguments.read.words[0], &second = arguments.read.words[1];
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.Project(), context));
  VANZET_TRY(const auto stored, LoadShop(arguments.Project(), context));
  const Shop shop = stored.ShownIn(unit);
  VANZET_TRY(const auto* const before, FindDevice(shop, first));
  VANZET_TRY(const auto* const now, FindDevice(shop, second));
  std::vector<Difference> differences;
  auto changes = DeviceChanges(shop, first, shop, second);
  if (!changes.empty()) differences.push_back({first + " -> " + second, before, now, std::move(changes)});
  context.hasFindings = !differences.empty();
  return PrintDifferences(arguments, differences, shop, shop, unit);
}

/// Two words are catalogues where both name one; else they are devices.
Result<void> Diff(const Arguments& arguments, Context& context) {
  const auto& words = arguments.words;
  const bool areCatalogues = words.size() == 2 && IsCatalogue(words[0]) && IsCatalogue(words[1]);
  return areCatalogues ? CompareCatalogues(arguments, context) : CompareDevices(arguments, context);
}

// 'merge'.

/// The words of `--prefer`.
constexpr const char *kMine = "mine", *kOther = "other";

catalogue::Prefer PreferOf(const std::string& word) {
  if (word == kMine) return catalogue::Prefer::kMine;
  return word == kOther ? catalogue::Prefer::kOther : catalogue::Prefer::kNeither;
}

bool HasConflicts(const std::vector<Merged>& all) {
  return CountOf(all, Outcome::kConflict) > 0;
}

/// "2 added, 24 same".
std::string CountsOf(const std::vector<Merged>& all) {
  std::string counts;
  for (const Outcome outcome : catalogue::Outcomes()) {
    const std::size_t count = CountOf(all, outcome);
    if (count == 0) continue;
    counts += (counts.empty() ? "" : ", ") + std::to_string(count) + " " + catalogue::WordOf(outcome);
  }
  return counts.empty() ? "no devices" : counts;
}

std::string TextOf(const std::vector<Merged>& all, bool isDryRun) {
  std::string text;
  for (const Merged& each : all) {
    const std::string reason = each.reason.empty() ? "" : ": " + each.reason;
    text += Left(catalogue::WordOf(each.outcome), 9) + OneLine(each.name + reason) + "\n";
  }
  text += CountsOf(all);
  if (HasConflicts(all)) return text + "; nothing was written\n";
  return text + (isDryRun ? "; nothing was written, since --dry-run is given\n" : "\n");
}

Json ToJson(const std::vector<Merged>& all, bool isWritten) {
  Json list = Json::array();
  for (const Merged& each : all) {
    list.push_back(
        {{"name", each.name}, {"outcome", catalogue::WordOf(each.outcome)}, {"reason", each.reason}});
  }
  return {{"devices", std::move(list)}, {"written", isWritten}};
}

/// The project comes first where there are two words: both name catalogues.
SplitWords ReadMergeWords(const std::vector<std::string>& words) {
  return words.size() == 1 ? SplitWords{".", words} : SplitWords{words.front(), {words.back()}};
}

Result<std::vector<Merged>> MergeInto(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.Project(), context));
  VANZET_TRY(const auto place, ShopPlaceOf(arguments.Project(), context));
  VANZET_TRY(const auto other, LoadShop(arguments.read.words.front(), context));
  std::optional<Shop> base;
  if (!arguments.base.empty()) {
    VANZET_TRY(base, LoadShop(arguments.base, context));
  }
  std::vector<Merged> all;
  VANZET_DO(catalogue::ChangeShop(place, "catalogue merge", [&](Shop& mine) -> Result<bool> {
    VANZET_TRY(all, Merge(mine, other, base ? &*base : nullptr, PreferOf(arguments.prefer), unit));
    return !arguments.isDryRun && !HasConflicts(all);
  }));
  return all;
}

Result<void> MergeAndPrint(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto all, MergeInto(arguments, context));
  context.hasFindings = HasConflicts(all) || CountOf(all, Outcome::kRefused) > 0;
  const bool isWritten = !arguments.isDryRun && !HasConflicts(all);
  return arguments.isJson ? PrintJson(ToJson(all, isWritten)) : Print(TextOf(all, arguments.isDryRun));
}

}  // namespace

void AddCatalogueCheck(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command =
      catalogue.AddCommand("check", "Checks a catalogue and its maker data, with the line of each finding.");
  command.AddOperands("[PROJECT]", kCatalogueHelp, arguments->words).Count(0, 1);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  command.notes = "The exit status is 3 when something was found.";
  command.examples = {"vanzet catalogue check lathe", "vanzet catalogue check - <lathe/clampdevice.cld"};
  command.check = [=] { arguments->read = SplitCatalogue(arguments->words, 0); };
  command.work = [=, &context] { return Check(*arguments, context); };
}

void AddCatalogueDiff(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = catalogue.AddCommand(
      "diff", "Prints the differences between two catalogues, or between two devices of one.");
  command
      .AddOperands(
          "[PROJECT] A B",
          "two catalogues, each a project or a catalogue file, or two devices of the project's catalogue",
          arguments->words)
      .Required()
      .Count(2, 3);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.notes = "The exit status is 3 when they differ.";
  command.examples = {"vanzet catalogue diff lathe other",
                      "vanzet catalogue diff lathe 'Chuck 160' 'Chuck 210'"};
  command.check = [=] { arguments->read = SplitCatalogue(arguments->words, 2); };
  command.work = [=, &context] { return Diff(*arguments, context); };
}

void AddCatalogueMerge(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = catalogue.AddCommand(
      "merge", "Brings the devices of another catalogue into this one, and reports each device.");
  command
      .AddOperands("[PROJECT] OTHER",
                   "the other catalogue: a project, a catalogue file, or - for standard input",
                   arguments->words)
      .Required()
      .Count(1, 2);
  command.AddOption("--base", "FILE", "the catalogue from which both were made", StoreFile(arguments->base));
  command
      .AddOption("--prefer", "SIDE",
                 "the side that is taken where both differ; without it nothing is written",
                 StoreText(arguments->prefer))
      .OneOf({kMine, kOther});
  command.AddFlag("--dry-run", "only print what would change", arguments->isDryRun);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.notes =
      "With --base the changes from there to OTHER are made here: devices are added, changed and removed. A "
      "device\nthat both sides changed is a conflict. Without --base no device is removed, and each that "
      "differs is a\nconflict. A device whose values make no solid is refused, and the others are taken. The "
      "exit status is 3 after\na conflict, when nothing is written, and when a device was refused.";
  command.examples = {"vanzet catalogue merge lathe other",
                      "vanzet catalogue merge lathe other --prefer mine --dry-run"};
  command.check = [=] { arguments->read = ReadMergeWords(arguments->words); };
  command.work = [=, &context] { return MergeAndPrint(*arguments, context); };
}

}  // namespace vanzet::cli
