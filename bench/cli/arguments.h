#pragma once

#include <cstdint>
#include <string>

namespace CLI {
class App;
}

namespace vanzet::cli {

/// The number that a word of the command line stands for, decimal and from 0 up. Any other word is wrong
/// usage, which is thrown to the parser; `name` is the operand's or option's.
std::int32_t NumberOf(const std::string& name, const std::string& word);

/// The word itself; an empty one is wrong usage.
std::string FileOf(const std::string& name, const std::string& word);

struct Context;

/// Gives a command whose work has a folder of its own the option --keep-tmp.
void AddKeepTmp(CLI::App& command, Context& context);

}  // namespace vanzet::cli
