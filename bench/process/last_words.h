#pragma once

#include <string_view>

/// How a program ends that cannot go on. The functions that write allocate nothing, and may be called in a
/// handler of signals.
namespace vanzet::process {

/// From now on the program ends with one line on standard error, "vanzet: ...", and status 1
///   - after an exception that nobody caught: "out of memory", or what the exception says;
///   - after a fault of the program itself, such as a null pointer: "internal error (signal 11)".
/// A program that is interrupted (SIGINT, SIGTERM, SIGHUP) writes a line and ends by the signal's default
/// action. A signal that the caller had ignored stays ignored, and sanitizers keep their own handlers.
void InstallLastWords();

/// How much of the work of this run is in the project's files, which the lines of signals add.
enum class Kept {
  kUnknown,  ///< nothing is added
  kNothing,  ///< "; nothing of this run was stored"
  kAll,      ///< "; the work of this run is stored"
};
void SetKept(Kept kept);

/// Names the library that the system's loader is busy with; null: none. What it brings along from outside may
/// end the program as it is initialised, which the line of the signal then says. The text is not copied.
void SetLoading(const char* library);

/// Notes that a library could not be loaded, and may be there in part, or that an exception came through one.
void DistrustLibraries();

/// Ends the program with that status. Where memory ran out, or libraries are not trusted, the handlers that
/// they have registered for the end do not run: they can wait for ever for a lock that was left behind.
[[noreturn]] void End(int status);

/// Writes "vanzet: TEXT" and a line end to standard error.
void WriteLastLine(std::string_view text);

/// Writes the line of the exception that is being handled, and ends the program with status 1.
[[noreturn]] void EndByException();

}  // namespace vanzet::process
