#pragma once

/// Decides which calls of the system go wrong in the program that this library is loaded into before all
/// others.
///
/// Environment
///   VANZET_FAULT         "FAMILY NUMBER EFFECT": call NUMBER (from 1) of the family goes wrong.
///                        "NUMBER+": every later one too. Number 0: none, the calls are only counted
///   VANZET_FAULT_FOLDER  only calls about files below this folder count; left out: all calls
///   VANZET_FAULT_REPORT  a file that gets a line "PROGRAM FAMILY NUMBER" when a call goes wrong, and at
///                        the end of a program that only counts, a line for each family
///
/// An effect is the name of an error ("ENOSPC"), "short" (half of the bytes are read or written), or the
/// name of a signal ("SIGKILL"), which the program then gets at that call. The family "file" is all of them
/// but "memory".
namespace vanzet::faults {

enum class Family { kOpen, kRead, kWrite, kSync, kName, kLock, kMap, kMemory };

/// The file that a call is about: a path, relative to an open folder or to the current one, or an open file.
struct Place {
  const char* path = nullptr;
  int descriptor = -1;
};

/// The fate of one call.
struct Verdict {
  int error = 0;         ///< for errno; 0: the call is made
  bool isShort = false;  ///< made with half of its bytes
};

/// Counts the call. Does not return when the effect is a signal that ends the program.
/// Leaves errno alone.
Verdict Judge(Family family, Place place);

}  // namespace vanzet::faults
