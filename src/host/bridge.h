#pragma once

#include <cstdint>
#include <string>

/// The short road to the host: lines, macros, boxes, help.
namespace vanzet::host {

/// The selector of the window that owns our boxes.
inline constexpr std::int32_t kBoxOwner = 2;

/// Runs one line of the macro language. What it did shows only in macro variables.
void SendCommand(const char* line);
void SendCommand(const std::string& line);

/// Runs a named macro.
void RunMacro(const std::string& name, const std::string& arguments);

/// Shows a box in front of the host's window and returns its answer (platform/message_box.h).
std::int32_t HostMessageBox(const std::string& caption, const std::string& text, std::int32_t type);

/// Makes our page the topic of the host's help; the macro "loadhelp" then opens it.
void SetHelpTopic();

}  // namespace vanzet::host
