#pragma once

#include <cstdint>
#include <string>

/// Macro variables by name: "i..." an integer, "w..." a real, "$..." a text. The host owns them.
///
/// Errors   one box for each read or write that the host refuses, the variable's name as text; then the
///          operation goes on and returns as usual
namespace vanzet::OrvoApi {

/// The value of an integer variable, whatever `ok` says.
std::int32_t GetGlobalIntVar(const std::string& name, bool& ok);
std::int32_t GetGlobalIntVar(const std::string& name);

/// Writes what the host returns to `value`, also on failure. Its box has the caption of the integer read.
bool GetGlobalRealVar(const std::string& name, double& value);

/// Leaves `text` as it is on failure.
bool GetGlobalStrVar(const std::string& name, std::string& text);

bool SetGlobalStrVar(const std::string& name, const std::string& value);

}  // namespace vanzet::OrvoApi
