#include "modeller/exchange/properties.h"

#include <algorithm>

#include "base/letter_case.h"
#include "base/one_line.h"
#include "modeller/exchange/package_xml.h"
#include "modeller/exchange/part21.h"

namespace vanzet::modeller {
namespace {

using Kind = Part21Value::Kind;

/// The texts of an instance, but empty ones.
std::vector<std::string> TextsOf(const Part21Instance& instance) {
  std::vector<std::string> texts;
  for (const Part21Value& value : instance.values) {
    if (value.kind == Kind::kText && !value.text.empty()) texts.push_back(OneLine(value.text));
  }
  return texts;
}

std::string TextAt(const Part21Instance& instance, std::size_t position) {
  if (position >= instance.values.size() || instance.values[position].kind != Kind::kText) return "";
  return OneLine(instance.values[position].text);
}

/// The instances of a Part 21 file as what they say of a device.
class DeviceOfInstances {
 public:
  explicit DeviceOfInstances(const Part21Instances& instances) : instances_(instances) {}

  PackageItem Item() const {
    PackageItem item;
    for (const auto& [number, instance] : instances_) {
      if (instance.type == "ORGANIZATION") TakeFirst(item.maker, instance, 1, 0);
      if (instance.type == "ITEM" || instance.type == "PRODUCT") {
        TakeFirst(item.order, instance, 0, 0);
        TakeFirst(item.name, instance, 1, 0);
      }
      if (instance.type == "PROPERTY_VALUE_REPRESENTATION") AddProperty(instance, item);
    }
    return item;
  }

 private:
  /// Sets what is still empty to the text at a position, or at the other one.
  static void TakeFirst(std::string& text, const Part21Instance& instance, std::size_t position,
                        std::size_t other) {
    if (text.empty()) text = TextAt(instance, position);
    if (text.empty()) text = TextAt(instance, other);
  }

  /// The first instance that one refers to and whose type ends so; null without one.
  const Part21Instance* Referred(const Part21Instance& from, std::string_view ending) const {
    for (const Part21Value& value : from.values) {
      if (value.kind != Kind::kReference) continue;
      const auto found = instances_.find(value.reference);
      if (found != instances_.end() && found->second.type.ends_with(ending)) return &found->second;
    }
    return nullptr;
  }

  void AddProperty(const Part21Instance& representation, PackageItem& item) const {
    PackageProperty property;
    AddNames(representation, property);
    if (const auto* const number = Referred(representation, "NUMERICAL_VALUE")) {
      AddNumber(*number, property);
    } else if (const auto* const text = Referred(representation, "STRING_VALUE")) {
      AddText(*text, property);
    }
    if (!property.names.empty() && !property.value.empty()) item.properties.push_back(property);
  }

  /// Those of the definition of a property, and of the dictionary's entry that it refers to.
  void AddNames(const Part21Instance& representation, PackageProperty& property) const {
    const Part21Instance* const definition = Referred(representation, "PROPERTY");
    if (definition != nullptr) AddNames(TextsOf(*definition), property);
    const Part21Instance& referring = definition == nullptr ? representation : *definition;
    const Part21Instance* const entry = Referred(referring, "PROPERTY_REFERENCE");
    if (entry != nullptr) AddNames(std::vector{TextAt(*entry, 0)}, property);
  }

  static void AddNames(const std::vector<std::string>& names, PackageProperty& property) {
    for (const std::string& name : names) {
      const bool isNew = std::ranges::find(property.names, name) == property.names.end();
      if (isNew && !name.empty()) property.names.push_back(name);
    }
  }

  void AddNumber(const Part21Instance& number, PackageProperty& property) const {
    for (const Part21Value& value : number.values) {
      if (value.kind == Kind::kNumber) property.value = value.text;
    }
    AddNames(TextsOf(number), property);
    const Part21Instance* const unit = Referred(number, "UNIT");
    const auto units = unit == nullptr ? std::vector<std::string>() : TextsOf(*unit);
    if (!units.empty()) property.unit = units.front();
  }

  /// The name of the value comes before its text.
  static void AddText(const Part21Instance& text, PackageProperty& property) {
    auto texts = TextsOf(text);
    if (texts.empty()) return;
    property.value = texts.back();
    texts.pop_back();
    AddNames(texts, property);
  }

  const Part21Instances& instances_;
};

/// The place of an element's text in a device.
struct ElementRow {
  std::string_view name;
  std::string PackageItem::*text;
};
constexpr ElementRow kElements[] = {
    {"Manufacturer", &PackageItem::maker}, {"PrimaryId", &PackageItem::order},
    {"OrderNumber", &PackageItem::order},  {"Designation", &PackageItem::name},
    {"Description", &PackageItem::name},
};

/// Puts an element of a property into it.
void AddPart(const XmlElement& element, PackageProperty& property) {
  const auto is = [&](std::string_view name) { return EqualWithoutCase(element.name, name); };
  if (element.text.empty()) return;
  if (is("PropertyName") || is("Symbol") || is("Code")) property.names.push_back(OneLine(element.text));
  if (is("Value")) property.value = OneLine(element.text);
  if (is("Unit")) property.unit = OneLine(element.text);
}

}  // namespace

Result<PackageItem> ItemOfPart21(std::string_view text) {
  VANZET_TRY(const auto instances, ReadPart21(text));
  return DeviceOfInstances(instances).Item();
}

Result<PackageItem> ItemOfXml(std::string_view text) {
  VANZET_TRY(const auto elements, ReadXmlElements(text));
  PackageItem item;
  std::vector<PackageProperty> properties(elements.size());
  for (const XmlElement& element : elements) {
    for (const ElementRow& row : kElements) {
      if (EqualWithoutCase(row.name, element.name) && (item.*row.text).empty())
        item.*row.text = OneLine(element.text);
    }
    AddPart(element, properties[element.parent]);
  }
  for (PackageProperty& property : properties) {
    if (!property.names.empty() && !property.value.empty()) item.properties.push_back(std::move(property));
  }
  return item;
}

}  // namespace vanzet::modeller
