#pragma once

#include "cli/context.h"

/// The commands. Each adds itself with its arguments and its help, and puts its work into the context when it
/// was chosen.
namespace vanzet::cli {

void AddNew(CLI::App& app, Context& context);
void AddOpen(CLI::App& app, Context& context);
void AddUpgrade(CLI::App& app, Context& context);
void AddScript(CLI::App& app, Context& context);
void AddShow(CLI::App& app, Context& context);
void AddDefine(CLI::App& app, Context& context);
void AddItems(CLI::App& app, Context& context);
void AddVdm(CLI::App& app, Context& context);
void AddCommand(CLI::App& app, Context& context);
void AddPicture(CLI::App& app, Context& context);
void AddExport(CLI::App& app, Context& context);
void AddDevice(CLI::App& app, Context& context);
void AddContour(CLI::App& app, Context& context);
void AddCompletion(CLI::App& app, Context& context);
void AddManual(CLI::App& app, Context& context);

}  // namespace vanzet::cli
