#pragma once

#include "project/message_panel.h"
#include "project/project.h"
#include "scene/scene.h"
#include "section/section.h"

namespace vanzet::results {

/// The questions about solids to which pictures and exports need the answers. Only a STEP file needs their
/// measures.
inline constexpr modeller::Foresight kForPictures = {.extents = true, .mesh = true};

/// Makes the equipment of a spur in space, with the figures of the project's drawing and folder of figures
/// and the solids of the folder of bodies, which are all read by one process. Fails with `kMissing` without
/// such a spur or definition, and with `kDamaged` for a damaged definition. What of the equipment cannot be
/// made is missing in the scene.
Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange,
                             const modeller::Foresight& foresight = kForPictures);

/// A source of named solids.
using FindBody = std::function<Result<modeller::Body>(const std::string& name)>;

/// The same with solids that are read elsewhere.
Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange, FindBody body);

/// The equipment of a definition of the project of any time.
Result<scene::Scene> SceneOf(const project::Project& project, const project::Definition& definition,
                             const modeller::Exchange& exchange, FindBody body);

/// The same as the first; what is missing is shown on the panel. Fails also when nothing of the equipment is
/// left.
Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur,
                                 const modeller::Exchange& exchange, project::MessagePanel& panel,
                                 const modeller::Foresight& foresight = kForPictures);

/// The equipment of a definition that is being made: values that may not be in it yet, devices made from
/// them, and named solids from a source that keeps what it has read.
Result<scene::Scene> LiveSceneOf(const project::Project& project, const scene::Equipment& equipment,
                                 const project::Definition& definition, const modeller::Exchange& exchange,
                                 FindBody body);

/// The half section of that equipment.
Result<section::Section> SectionOf(const project::Project& project, std::int32_t spur,
                                   const modeller::Exchange& exchange, project::MessagePanel& panel);

}  // namespace vanzet::results
