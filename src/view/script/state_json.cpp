#include "view/script/state_json.h"

#include <string_view>
#include <vector>

#include "view/script/json.h"

namespace vanzet::view {
namespace {

std::string ItemsJson(const std::vector<std::string>& items) {
  JsonList array;
  for (const std::string& item : items) array.Element(JsonString(item));
  return array.AsArray();
}

void AddText(JsonList& json, const Control& control) {
  json.Text("text", control.text);
}
void AddCheck(JsonList& json, const Control& control) {
  json.Text("text", control.text).Truth("checked", control.isChecked);
}
void AddCombo(JsonList& json, const Control& control) {
  json.Json("items", ItemsJson(control.items))
      .Number("selected", control.selected)
      .Text("text", control.text);
}
void AddSpin(JsonList& json, const Control& control) {
  json.Number("value", control.value);
}
void AddPicture(JsonList& json, const Control& control) {
  json.Number("bitmap", control.bitmap);
}

struct KindForm {
  ControlKind kind;
  std::string_view name;
  void (*add)(JsonList&, const Control&);
};

// clang-format off
constexpr KindForm kForms[] = {
    {ControlKind::kButton,  "button",  AddText},
    {ControlKind::kEdit,    "edit",    AddText},
    {ControlKind::kCheck,   "check",   AddCheck},
    {ControlKind::kCombo,   "combo",   AddCombo},
    {ControlKind::kSpin,    "spin",    AddSpin},
    {ControlKind::kLabel,   "label",   AddText},
    {ControlKind::kPicture, "picture", AddPicture},
};
// clang-format on

std::string ControlJson(const Control& control) {
  const KindForm& form = kForms[static_cast<std::size_t>(control.kind)];
  JsonList json;
  json.Text("kind", form.name);
  form.add(json, control);
  return json.Truth("enabled", control.isEnabled).Truth("visible", control.isVisible).AsObject();
}

std::string ControlsJson(const std::vector<Control>& controls) {
  JsonList json;
  for (const Control& control : controls) json.Json(std::to_string(control.id), ControlJson(control));
  return json.AsObject();
}

std::string NodeJson(const TreeNode& node) {
  const std::string bitmaps =
      "[" + std::to_string(node.bitmap) + "," + std::to_string(node.selectedBitmap) + "]";
  return JsonList()
      .Number("id", node.id)
      .Number("parent", node.parent)
      .Text("text", node.text)
      .Truth("bold", node.isBold)
      .Truth("open", node.isOpen)
      .Json("bitmaps", bitmaps)
      .AsObject();
}

}  // namespace

std::string StateJson(const DialogState& state) {
  JsonList tree;
  for (const TreeNode& node : state.tree) tree.Element(NodeJson(node));
  return JsonList()
      .Text("event", "state")
      .Text("caption", state.caption)
      .Text("page", state.page)
      .Number("spindle", state.spindle)
      .Number("device_type", state.deviceType)
      .Number("spur", state.spur)
      .Number("selected", state.selectedNode)
      .Json("tree", tree.AsArray())
      .Json("dialog", ControlsJson(state.dialog))
      .Json("controls", ControlsJson(state.controls))
      .AsObject();
}

}  // namespace vanzet::view
