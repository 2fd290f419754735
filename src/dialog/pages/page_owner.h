#pragma once

#include <cstdint>

#include "catalogue/device_catalogue.h"
#include "dialog/equipment_tree.h"
#include "machine/pp_def_ini.h"

namespace vanzet::dialog {

/// The dialog as its pages see it: what the tree's selection means, what all pages share, and the window.
class PageOwner {
 public:
  /// 0 the main spindle; 1 the sub spindle, and also the tailstock's center.
  virtual std::int32_t CurrentSpindle() const = 0;

  /// The type of device that the clamp pages work on; 0 none.
  virtual std::int32_t CurrentDeviceType() const = 0;

  /// The index of the spur in the combo; -1 on a machine of one spur, which means spur 0.
  virtual std::int32_t SelectedSpur() const = 0;

  virtual PpDefIni& Machine() = 0;
  virtual CDevice& Catalogue() = 0;
  virtual EquipmentTree& Tree() = 0;

  /// Reads all records of the spur and marks the nodes again.
  virtual void RefreshTreeMarks() = 0;

  /// Hides the dialog while the user works in the host's window, and shows it again.
  virtual void SetVisible(bool isVisible) = 0;

  /// Puts the focus on a control of the page in front, or on the tree.
  virtual void Focus(std::int32_t control, bool selectsAll) = 0;

  /// Says that the edit of the page in front does not hold a number, and puts the focus on it.
  virtual void RefuseNumber(std::int32_t edit) = 0;

  /// The dialog's own window, which owns file dialogs.
  virtual void* Window() = 0;

 protected:
  ~PageOwner() = default;
};

}  // namespace vanzet::dialog
