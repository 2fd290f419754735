#pragma once

#include <string>

#include "devices/device_params.h"
#include "dialog/pages/page.h"

namespace vanzet::dialog {

/// The shop's catalogue: devices of one type are saved and deleted. No definition is touched.
class CPageClampElemNew final : public Page {
 public:
  explicit CPageClampElemNew(PageOwner& owner);

  void OnSetActive() override;
  void OnPress(std::int32_t button) override;
  void OnChoose(std::int32_t combo) override;

 private:
  static const Handler<CPageClampElemNew> kButtons[];

  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;

  void OnNameChange();
  void OnSave();
  void OnDelete();

  /// Shows the names of the type, and an empty name.
  void Refill();

  /// True after a box when the name or a value that has to be given is missing.
  bool IsIncomplete();

  DeviceParams params_;
  std::string deviceName_;
};

}  // namespace vanzet::dialog
