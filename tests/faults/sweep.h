#pragma once

#include <chrono>
#include <random>

#include "faults/workplace.h"

namespace vanzet::faults {

/// A command with the folder that it works on: before, after, and what it prints.
struct Case {
  explicit Case(const Command& command);

  Command command;
  Workplace before;
  Content old;
  Content wanted;                      ///< what a run without a fault leaves
  std::string out;                     ///< what it prints
  std::map<std::string, long> counts;  ///< its calls by family; "file": of all but memory
  std::chrono::microseconds time;      ///< that it takes
};

/// How often a sweep tries each kind of fault: VANZET_FAULT_POINTS, 1 without it.
long Points();

/// True for the families of calls that a sweep shall try: VANZET_FAULT_FAMILIES, words with blanks between
/// them, all without it.
bool IsTried(const std::string& family);

/// How often a command is killed at a random moment: VANZET_FAULT_KILLS, 1 without it.
long Kills();

/// Which calls a sweep tries, when there are more: VANZET_FAULT_SEED, 1 without it.
unsigned Seed();

/// Up to `Points()` different numbers from 1 to `count`, drawn by `random`.
std::vector<long> Draw(long count, std::mt19937& random);

/// Checks what a run of the command leaves: each file and the store wholly old or wholly new; with status 0
/// wholly new and the whole output; with another status a reason on standard error; the next run works and
/// leaves no litter.
void Check(const Case& work, const Workplace& place, const Outcome& run);

/// Runs the command with the fault in a copy of its folder, and checks what it leaves.
void Try(const Case& work, const Workplace& place, const std::string& fault);

}  // namespace vanzet::faults
