#pragma once

#include <string>

#include "devices/device_params.h"
#include "dialog/pages/page.h"

namespace vanzet::dialog {

/// The device that holds the work at one place: one of the catalogue, with its values edited if wished, or
/// one from a VDM file of its own.
class CPageClampElem final : public Page {
 public:
  explicit CPageClampElem(PageOwner& owner);

  void OnSetActive() override;
  void OnPress(std::int32_t button) override;
  void OnChoose(std::int32_t combo) override;

 private:
  static const Handler<CPageClampElem> kButtons[];

  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;

  /// The steps of OnSetActive. ReadDevice gives the record's name.
  std::string ReadDevice();
  void EnterInCatalogue(const std::string& name);
  void FillList();
  void ShowJawControls();
  void ShowName(const std::string& name);

  void OnDeviceChange();
  void OnSelectParametric();
  void OnBrowse();
  void OnSelectOwn();

  /// Writes the device under the name to store, what goes with it, and refreshes the marks.
  void SaveDevice(const std::string& name);
  std::int32_t WriteByType(const std::string& name);
  void WriteOptions();

  void ShowDeviceState();

  std::int32_t deviceKind_ = 0;
  DeviceParams params_;
  std::string pathText_;
};

}  // namespace vanzet::dialog
