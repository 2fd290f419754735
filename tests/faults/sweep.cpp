#include "faults/sweep.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace vanzet::faults {
namespace {

/// More faults on standard error than this hide the reason. What the module shows in boxes comes besides.
constexpr long kMostFaults = 5;

long Number(const char* variable, long otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

/// The counts of the lines "vanzet FAMILY NUMBER".
std::map<std::string, long> CountsOf(const std::string& report) {
  std::map<std::string, long> counts;
  std::istringstream lines(report);
  std::string program, family;
  for (long count = 0; lines >> program >> family >> count;) {
    if (program != "vanzet") continue;
    counts[family] = count;
    if (family != "memory") counts["file"] += count;
  }
  return counts;
}

std::string TextIn(const Content& content, const std::string& name) {
  const auto found = content.find(name);
  return found == content.end() ? "absent" : found->second;
}

/// Where two texts begin to differ, for a message that can be read.
std::string Difference(const std::string& is, const std::string& other) {
  const std::size_t at = static_cast<std::size_t>(std::ranges::mismatch(is, other).in1 - is.begin());
  const std::size_t from = at > 60 ? at - 60 : 0;
  return "\n  is:    ..." + is.substr(from, 160) + "\n  other: ..." + other.substr(from, 160);
}

/// A new file that has a name of its own already, and takes that of the old one with the next call: the
/// system has no call that does both, so that a process killed between the two leaves it.
bool IsBetweenTwoNames(const std::string& name) {
  return std::regex_search(name, std::regex("\\.new-[0-9A-Za-z]{6}$"));
}

/// The folder of a run that has ended, which the next one removes.
bool IsOfDeadRun(const std::string& name) {
  return std::regex_search(name, std::regex("/tmp/[0-9]+$"));
}

/// The names that neither the old nor the new content has.
std::vector<std::string> LitterIn(const Content& content, const Case& work, bool wasKilled) {
  std::vector<std::string> litter;
  for (const auto& [name, text] : content) {
    const bool isExpected = work.old.contains(name) || work.wanted.contains(name);
    const bool isPassing =
        (wasKilled && IsBetweenTwoNames(name)) || (!work.command.repeats && IsOfDeadRun(name));
    if (!isExpected && !isPassing) litter.push_back(name);
  }
  return litter;
}

std::set<std::string> NamesOf(const Case& work) {
  std::set<std::string> names;
  for (const auto& [name, text] : work.old) names.insert(name);
  for (const auto& [name, text] : work.wanted) names.insert(name);
  return names;
}

void ExpectOldOrNew(const Content& content, const Case& work) {
  for (const std::string& name : NamesOf(work)) {
    const std::string text = TextIn(content, name), wanted = TextIn(work.wanted, name);
    // A transcript is a log: of a run that failed it has what happened until then.
    const bool isLog = name.ends_with(".jsonl");
    if (isLog || text == wanted || text == TextIn(work.old, name)) continue;
    ADD_FAILURE() << name << " is neither old nor new" << Difference(text, wanted);
  }
}

void ExpectNew(const Content& content, const Case& work) {
  for (const std::string& name : NamesOf(work)) {
    const std::string text = TextIn(content, name), wanted = TextIn(work.wanted, name);
    if (text != wanted) ADD_FAILURE() << name << " is not new" << Difference(text, wanted);
  }
}

long FaultsIn(const std::string& text) {
  static const std::regex fault("(^|\n)vanzet: ");
  return std::distance(std::sregex_iterator(text.begin(), text.end(), fault), std::sregex_iterator());
}

/// The system's loader of libraries ends the program itself where it gets no memory for the names of one, or
/// for the variables that each thread has of it.
bool EndedByTheLoader(const Outcome& run) {
  return run.status == 127 &&
         (run.err.ends_with("out of memory\n") || run.err.ends_with("thread-local data: ABORT\n"));
}

void ExpectTrueStatus(const Outcome& run, const Case& work) {
  if (EndedByTheLoader(run)) return;
  if (run.status == 0) {
    EXPECT_EQ(run.out, work.out);
    return;
  }
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_THAT(run.err, testing::Not(testing::HasSubstr("internal error")));
  const long faults = FaultsIn(run.err);
  EXPECT_GE(faults, 1) << "standard error has no reason: " << run.err;
  EXPECT_LE(faults, kMostFaults) << run.err;
}

bool IsNew(const Content& content, const Case& work) {
  return std::ranges::all_of(work.wanted,
                             [&](const auto& entry) { return TextIn(content, entry.first) == entry.second; });
}

void ExpectNextRunWorks(const Case& work, const Workplace& place, const Content& left, bool wasKilled) {
  if (work.command.repeats || !IsNew(left, work)) {
    const Outcome next = place.Vanzet(work.command.words);
    EXPECT_EQ(next.status, 0) << "the next run: " << next.err;
  }
  const Content content = ContentOf(place.work());
  EXPECT_THAT(LitterIn(content, work, wasKilled), testing::IsEmpty());
  ExpectNew(content, work);
}

}  // namespace

Case::Case(const Command& ofCommand) : command(ofCommand) {
  before.PutGivenFiles();
  for (const Words& words : command.before) {
    const Outcome run = before.Vanzet(words);
    if (run.status != 0) throw std::runtime_error(command.name + ": " + run.err);
  }
  if (command.damaged) before.DamageStore();
  if (command.isOld) before.AgeStore();
  old = ContentOf(before.work());
  const Workplace place;
  place.CopyFrom(before);
  const Outcome run = place.Vanzet(command.words, "all 0");
  if (run.status != 0) throw std::runtime_error(command.name + ": " + run.err);
  wanted = ContentOf(place.work());
  out = run.out;
  counts = CountsOf(run.report);
  place.CopyFrom(before);
  const auto begun = std::chrono::steady_clock::now();
  place.Vanzet(command.words);
  time = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begun);
}

long Points() {
  static const long points = Number("VANZET_FAULT_POINTS", 1);
  return points;
}

bool IsTried(const std::string& family) {
  const char* const families = std::getenv("VANZET_FAULT_FAMILIES");
  std::istringstream words(families == nullptr ? family : families);
  return std::find(std::istream_iterator<std::string>(words), {}, family) !=
         std::istream_iterator<std::string>();
}

long Kills() {
  static const long kills = Number("VANZET_FAULT_KILLS", 1);
  return kills;
}

unsigned Seed() {
  static const auto seed = static_cast<unsigned>(Number("VANZET_FAULT_SEED", 1));
  return seed;
}

std::vector<long> Draw(long count, std::mt19937& random) {
  std::set<long> numbers;
  while (static_cast<long>(numbers.size()) < std::min(count, Points())) {
    numbers.insert(std::uniform_int_distribution<long>(1, count)(random));
  }
  return {numbers.begin(), numbers.end()};
}

void Check(const Case& work, const Workplace& place, const Outcome& run) {
  const bool wasKilled = run.status >= 128;
  const Content left = ContentOf(place.work());
  if (!wasKilled) ExpectTrueStatus(run, work);
  ExpectOldOrNew(left, work);
  if (run.status == 0) ExpectNew(left, work);
  ExpectNextRunWorks(work, place, left, wasKilled);
}

void Try(const Case& work, const Workplace& place, const std::string& fault) {
  std::string line = "VANZET_FAULT='" + fault + "' vanzet";
  for (const std::string& word : work.command.words) line += " '" + word + "'";
  SCOPED_TRACE(line);
  place.CopyFrom(work.before);
  const Outcome run = place.Vanzet(work.command.words, fault);
  // Only the signal that was sent may end it. Then, and where it may not delete, the system has to clean
  // its folder for temporary files.
  const std::string signal = fault.substr(fault.rfind(' ') + 1);
  const bool isKilled = signal.starts_with("SIG");
  EXPECT_TRUE(isKilled || run.status < 128) << run.err;
  const bool mustClean = !isKilled && !fault.starts_with("name");
  EXPECT_TRUE(!mustClean || ContentOf(place.temporary()).empty()) << "a temporary file stays";
  Check(work, place, run);
}

}  // namespace vanzet::faults
