#pragma once

#include "base/places.h"
#include "cli/command.h"
#include "project/message_panel.h"

/// The commands. Each function adds a command, or a group, with its parameters, help and work to the program.
/// The program and the context have to outlive the work.
namespace vanzet::cli {

/// What all commands share.
struct Context {
  Places places;
  project::MessagePanel& panel;  ///< standard error
  bool keepsTmp = false;         ///< the folder for the files of this run stays when it ends
};

void AddNew(Command& vanzet, Context& context);
void AddOpen(Command& vanzet, Context& context);
void AddUpgrade(Command& vanzet, Context& context);
void AddScript(Command& vanzet, Context& context);
void AddShow(Command& vanzet, Context& context);
void AddDefine(Command& vanzet, Context& context);
void AddItems(Command& vanzet, Context& context);
void AddVdm(Command& vanzet, Context& context);
void AddCommand(Command& vanzet, Context& context);
void AddPicture(Command& vanzet, Context& context);
void AddExport(Command& vanzet, Context& context);
void AddDevice(Command& vanzet, Context& context);
void AddContour(Command& vanzet, Context& context);
void AddCompletion(Command& vanzet, Context& context);
void AddManual(Command& vanzet, Context& context);

}  // namespace vanzet::cli
