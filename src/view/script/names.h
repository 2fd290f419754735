#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/result.h"
#include "view/dialog_state.h"

/// The names by which scripts and people call the nodes and controls of the dialog, beside their ids. The
/// table for readers: docs/formats/script-names.md.
namespace vanzet::view {

/// A name of a script. Capital letters in a script count as small ones.
struct NameRow {
  std::int32_t id;
  std::string_view name;     ///< "main/chuck", "outer_diameter"
  std::string_view meaning;  ///< a sentence without its full stop
};

/// All nodes and all controls, by id in the order of view/ids.h. Names of nodes are unique; those of controls
/// are unique on each page together with the dialog around it.
std::span<const NameRow> NodeNames();
std::span<const NameRow> ControlNames();

/// The commands of the menus of nodes.
std::span<const NameRow> CommandNames();

/// The name of an id, or its digits when it has none.
std::string NameOf(std::int32_t id, std::span<const NameRow> rows);

/// The id that a word of a script means: digits are an id, anything else is a name. Nothing for an unknown
/// name.
std::optional<std::int32_t> NodeId(std::string_view word);
std::optional<std::int32_t> CommandId(std::string_view word);

/// The control of the dialog or of the page in front that a word means; null when it is not there.
const Control* FindControl(const DialogState& state, std::string_view word);

/// The end of a message about a word that names nothing: "; did you mean 'main/chuck'?", of the names in the
/// tree, or of the controls that can be seen. Empty for digits.
std::string NearNodes(const DialogState& state, std::string_view word);
std::string NearControls(const DialogState& state, std::string_view word);

}  // namespace vanzet::view
