#pragma once

#include <gmock/gmock.h>

#include <deque>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/fake_host.h"
#include "support/temporary_folder.h"

namespace vanzet::test {

/// What a script did to a dialog.
struct Ran {
  std::vector<std::string> events;      ///< all but states, in the short form of DialogWorld::Run
  std::vector<nlohmann::json> states;   ///< in order
  std::vector<std::string> transcript;  ///< as it was written

  /// The last state; its controls, and one of them.
  const nlohmann::json& State() const { return states.back(); }
  const nlohmann::json& Control(int id) const { return State()["controls"].at(std::to_string(id)); }
  std::string TextOf(int id) const { return Control(id)["text"]; }

  /// The nodes in bold.
  std::vector<int> Bold() const;
};

/// Serves a dialog from a script, and writes the transcript. What serves is linked into the program: the view
/// of scripts, or one on a display whose person does what the script says.
void ServeDialog(const std::filesystem::path& script, const std::filesystem::path& transcript, void* parent);

/// A host with a machine, a catalogue and a definition for each spur, for dialogs served by scripts.
struct DialogWorld {
  DialogWorld();

  /// What a machine has. The definitions are made anew, none for spurs beyond.
  struct Machine {
    bool sub = false, tail = false, lun = false;
    int spurs = 1;
  };
  void SetMachine(const Machine& machine);

  /// Serves one dialog from the script. Events come in a short form:
  ///
  ///   box 4 Delete? -> 7          type, text and answer; the answer of one button is left out
  ///   box 0 [caption] text
  ///   focus 2158, focus 2027 all
  ///   hide, show
  ///   popup 2 51000 Delete -> 51000
  ///   open /a.vdm, save -         the result of a file dialog
  ///   error 3 what, closed ok
  Ran Run(const std::string& script);

  /// The items of a VDM that are not as in a new definition, "<operation>.<item> <text>"; item 0 is the
  /// header, and an item that a new definition does not have is one of them.
  std::vector<std::string> Stored(std::uint32_t vdm = 1000) const;

  /// Makes a new definition under that number.
  void NewDefinition(std::uint32_t vdm);

  /// Answers of the macro "vbpickel", in order: the status, and the position's two values. Without one the
  /// pick is broken off.
  struct Position {
    int status = 0;
    double axial = 0, radial = 0;
  };
  std::deque<Position> positions;

  /// Answers of "dfm pick", in order: the status, and the figure's number. Without one it is broken off.
  struct FigurePick {
    int status = 151;
    int number = 0;
  };
  std::deque<FigurePick> figures;
  std::map<int, std::string> figureNames;

  /// VDMs that "vdm load" finds, by path.
  std::map<std::string, std::vector<FakeHost::Record>> files;

  FakeHost host;
  TemporaryFolder folder{FolderInMemory()};
  std::filesystem::path catalogue = folder / "clampdevice.cld";
  int window = 0;  ///< its address stands for the host's main window

 private:
  void OnCommand(const std::string& line);
  void OnMacro(const std::string& name);
  void LoadVdm(const std::string& line);
};

class DialogTest : public testing::Test {
 protected:
  Ran Run(const std::string& script) { return world.Run(script); }

  /// The calls that a script causes behind the start of the dialog, those of texts and of the store left out.
  std::vector<std::string> CallsOf(const std::string& script);

  DialogWorld world;
  FakeHost& host = world.host;
};

/// The transcript in lines fit for a diff: of a state only the page, a line for each control.
std::string Readable(const Ran& ran);

}  // namespace vanzet::test
