#include "dialog/data_exchange.h"

namespace vanzet::dialog {

void Show(Controls& controls, std::int32_t edit, double value) {
  controls.SetReal(edit, value);
}

void Show(Controls& controls, std::int32_t edit, const std::string& value) {
  controls.SetText(edit, value);
}

void Show(Controls& controls, std::int32_t check, std::uint8_t value) {
  controls.Check(check, value == 1);
}

void Show(Controls& controls, std::int32_t check, std::int32_t value) {
  controls.Check(check, value != 0);
}

bool Read(const Controls& controls, std::int32_t edit, double& value) {
  const std::optional<double>& number = controls.Of(edit).number;
  if (number) value = *number;
  return number.has_value();
}

bool Read(const Controls& controls, std::int32_t edit, std::string& value) {
  value = controls.Of(edit).text;
  return true;
}

bool Read(const Controls& controls, std::int32_t check, std::uint8_t& value) {
  value = controls.Of(check).isChecked ? 1 : 0;
  return true;
}

bool Read(const Controls& controls, std::int32_t check, std::int32_t& value) {
  value = controls.Of(check).isChecked ? 1 : 0;
  return true;
}

}  // namespace vanzet::dialog
