#pragma once

#include <chrono>

#include "base/places.h"
#include "base/translations.h"
#include "cli/command.h"
#include "project/message_panel.h"
#include "vdm/store.h"

/// The commands of the program.
namespace vanzet::cli {

/// The surroundings that all commands share.
struct Context {
  Places places;
  project::MessagePanel& panel;  ///< standard error
  Translations texts = {};       ///< of the help and of the headings of tables

  /// A heading of a table in the language of the help.
  std::string Heading(std::string_view english) const {
    return std::string(texts.Translate(kTextSection, english));
  }
  bool hasFindings = false;  ///< the work was done and found something: the exit status is 3
  bool keepsTmp = false;     ///< the folder for the files of this run stays when it ends
  std::chrono::milliseconds wait = vdm::kUsualWait;  ///< for another process that is changing the project
};

/// Adds the help of the program and all commands, in English. Requires: the program and the context outlive
/// the work of the commands.
void DescribeProgram(Command& program, Context& context);

/// Each function adds a command, or a group of commands, with its parameters, help and work.
void AddNew(Command& vanzet, Context& context);
void AddOpen(Command& vanzet, Context& context);
void AddUpgrade(Command& vanzet, Context& context);
void AddScript(Command& vanzet, Context& context);
void AddShow(Command& vanzet, Context& context);
void AddCheck(Command& vanzet, Context& context);
void AddDefine(Command& vanzet, Context& context);
void AddItems(Command& vanzet, Context& context);
void AddVdm(Command& vanzet, Context& context);
void AddHistory(Command& vanzet, Context& context);
void AddDiff(Command& vanzet, Context& context);
void AddRestore(Command& vanzet, Context& context);
void AddStore(Command& vanzet, Context& context);
void AddStoreCopy(Command& store, Context& context);
void AddCommand(Command& vanzet, Context& context);
void AddPicture(Command& vanzet, Context& context);
void AddSheet(Command& vanzet, Context& context);
void AddExport(Command& vanzet, Context& context);
void AddBody(Command& vanzet, Context& context);
void AddDevice(Command& vanzet, Context& context);
void AddCatalogue(Command& vanzet, Context& context);
void AddContour(Command& vanzet, Context& context);
void AddHelp(Command& vanzet, Context& context);
void AddCompletion(Command& vanzet, Context& context);
void AddManual(Command& vanzet, Context& context);

}  // namespace vanzet::cli
