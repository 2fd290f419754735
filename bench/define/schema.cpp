#include "define/schema.h"

#include <nlohmann/json.hpp>

#include "define/tables.h"

namespace vanzet::define {
namespace {

Json Reference(std::string_view definition) {
  return {{"$ref", "#/$defs/" + std::string(definition)}};
}

Json Required(std::string_view key) {
  return {{"required", Json::array({key})}};
}

/// An object with these properties and no others.
Json Closed(Json properties, const std::vector<std::string>& required = {}) {
  Json schema = {{"type", "object"}, {"properties", std::move(properties)}, {"additionalProperties", false}};
  if (!required.empty()) schema["required"] = required;
  return schema;
}

Json Described(const std::string& description, const Json& schema) {
  Json described = {{"description", description}};
  described.update(schema);
  return described;
}

Json TextSchema() {
  return {{"type", "string"},
          {"minLength", 1},
          {"maxLength", kLongestText},
          {"pattern", "^[^\\u0000-\\u001f\\u007f]*$"}};
}

Json NumberSchema(const Quantity& quantity) {
  Json schema = {{"type", "number"}};
  schema[quantity.isAbove ? "exclusiveMinimum" : "minimum"] = NumberJson(quantity.least);
  schema["maximum"] = NumberJson(quantity.most);
  return schema;
}

/// The end of a description: the unit of the value.
std::string UnitText(const Quantity& quantity) {
  switch (quantity.unit) {
    case devices::Unit::kMillimetre: return "; millimetres";
    case devices::Unit::kDegree: return "; degrees";
    case devices::Unit::kNone: break;
  }
  return "";
}

Json ValueSchema(double /*of*/, const Quantity& quantity) {
  return NumberSchema(quantity);
}
Json ValueSchema(std::int32_t of, const Quantity& quantity) {
  Json schema = NumberSchema(quantity);
  schema["type"] = "integer";
  schema["default"] = of;
  return schema;
}
Json ValueSchema(bool of, const Quantity& /*quantity*/) {
  return {{"type", "boolean"}, {"default", of}};
}
Json ValueSchema(const std::string& /*of*/, const Quantity& /*quantity*/) {
  return TextSchema();
}

template <class Record>
void AddFields(std::span<const Field<Record>> fields, bool isSub, Json& properties) {
  const Record blank{};
  for (const Field<Record>& field : fields) {
    if (isSub && field.isOfMainAlone) continue;
    const Json value =
        std::visit([&](auto member) { return ValueSchema(blank.*member, field.quantity); }, field.member);
    properties[std::string(field.key)] =
        Described(std::string(field.description) + UnitText(field.quantity), value);
  }
}

/// The form of a record of that kind.
template <class Record>
Json KindSchema(const Kind<Record>& kind, bool isSub) {
  Json properties = {{kKind, {{"const", kind.word}}}};
  AddFields(kind.fields, isSub, properties);
  std::vector<std::string> required = {kKind};
  for (const Field<Record>& field : kind.fields) {
    if (field.isRequired) required.emplace_back(field.key);
  }
  return Closed(std::move(properties), std::move(required));
}

/// Kinds that the dialog cannot store are left out, as the check refuses them.
template <class Record>
Json PartSchema(const std::string& description, const Part<Record>& part, bool isSub) {
  Json kinds = Json::array();
  for (const Kind<Record>& kind : part.kinds) {
    if (kind.select != 0) kinds.push_back(KindSchema(kind, isSub));
  }
  return {{"description", description}, {"oneOf", std::move(kinds)}};
}

/// The values of a type of device. The catalogue may have those that are left out.
Json LettersSchema(std::int32_t type) {
  Json properties = Json::object();
  for (const devices::Letter& letter : devices::LettersOf(type)) {
    const Quantity quantity = QuantityOf(letter);
    const std::string name = *letter.name == '\0' ? "As the file has it" : letter.name;
    properties[std::string(1, letter.letter)] = Described(name + UnitText(quantity), NumberSchema(quantity));
  }
  return Closed(std::move(properties));
}

/// With `file`, the letters are those of the own device; else those of the type that the shape names.
Json LettersByShape(const DeviceRow& row) {
  const Json ofFile = {{"not", Required("shape")},
                       {"properties", {{"letters", LettersSchema(row.kind->own.code)}}}};
  Json rules = Json::array();
  rules.push_back({{"if", Required("file")}, {"then", ofFile}});
  if (!row.HasShapes()) {
    rules[0]["else"] = {{"properties", {{"letters", LettersSchema(row.kind->First())}}}};
    return rules;
  }
  for (const devices::Device& device : row.kind->devices) {
    const Json shape = {{"const", row.kind->ShapeOf(device.code)}};
    rules.push_back({{"if", {{"required", Json::array({"shape"})}, {"properties", {{"shape", shape}}}}},
                     {"then", {{"properties", {{"letters", LettersSchema(device.code)}}}}}});
  }
  return rules;
}

Json DeviceSchema(const DeviceRow& row) {
  Json properties = {{"name", Described("Its name, in the catalogue or a new one", TextSchema())},
                     {"file", Described("The .vdm file of an own device", TextSchema())}};
  if (row.HasShapes()) {
    properties["shape"] =
        Described("Its type, as the dialog numbers them; left out: that of the catalogue",
                  {{"type", "integer"}, {"minimum", 1}, {"maximum", row.kind->devices.size()}});
  }
  properties["letters"] = Described("Its values by their letters; left out: those of the catalogue",
                                    {{"type", "object"}, {"additionalProperties", {{"type", "number"}}}});
  if (row.Key() == JawRow().Key()) AddFields(JawFields(), false, properties);
  Json schema = Closed(std::move(properties));
  schema["oneOf"] = Json::array({Required("name"), Required("file")});
  schema["allOf"] = LettersByShape(row);
  return schema;
}

/// The schemas of objects that have one of the keys of devices that hold the work.
Json EachClamp() {
  Json schemas = Json::array();
  for (const DeviceRow& row : ClampRows()) schemas.push_back(Required(row.Key()));
  return schemas;
}

/// A spindle holds one device at most; jaws need one.
Json SpindleSchema(bool isSub) {
  Json properties = Json::object();
  for (const DeviceRow& row : ClampRows()) properties[std::string(row.Key())] = Reference(row.Key());
  properties[std::string(JawRow().Key())] = Reference(JawRow().Key());
  properties[std::string(BilletPart().key)] = PartSchema("The raw part", BilletPart(), isSub);
  properties[std::string(FinishedPart().key)] = PartSchema("The finished part", FinishedPart(), isSub);
  Json schema = Closed(std::move(properties));
  const Json none = {{"not", {{"anyOf", EachClamp()}}}};
  Json oneAtMost = EachClamp();
  oneAtMost.push_back(none);
  schema["oneOf"] = std::move(oneAtMost);
  schema["dependentSchemas"] = {{std::string(JawRow().Key()), {{"anyOf", EachClamp()}}}};
  return schema;
}

Json DatumSchema() {
  Json spindles = Json::object();
  for (std::size_t i = 0; i < std::size(kSpindleKeys); ++i) {
    Json properties = Json::object();
    AddFields(DatumFields(i), i == 1, properties);
    spindles[std::string(kSpindleKeys[i])] = Closed(std::move(properties));
  }
  return Described("Where the part is; left out values are 0", Closed(std::move(spindles)));
}

Json SpurSchema() {
  return Closed(
      {{"spur",
        {{"description", "The number of the spindle spur, from 0"}, {"type", "integer"}, {"minimum", 0}}},
       {"main", Described("The main spindle", Reference("main"))},
       {"sub", Described("The sub spindle", Reference("sub"))},
       {"center", Described("The centre of the tailstock", Reference("center"))},
       {"datum", DatumSchema()},
       {"steady_rest",
        {{"description", "Whether the steady rest is used"}, {"type", "boolean"}, {"default", false}}}},
      {"spur"});
}

Json Definitions() {
  Json definitions = {{"spur", SpurSchema()}};
  for (std::size_t i = 0; i < std::size(kSpindleKeys); ++i) {
    definitions[std::string(kSpindleKeys[i])] = SpindleSchema(i == 1);
  }
  for (const DeviceRow& row : ClampRows()) definitions[std::string(row.Key())] = DeviceSchema(row);
  for (const DeviceRow* const row : {&JawRow(), &CenterRow()})
    definitions[std::string(row->Key())] = DeviceSchema(*row);
  return definitions;
}

}  // namespace

Json FormSchema() {
  Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                 {"$id", "urn:vanzet:definition:" + std::to_string(kFormVersion)},
                 {"title", "Equipment of a turning machine"},
                 {"description",
                  "The devices, the raw and the finished part, and the datum of spindle spurs, as vanzet "
                  "define takes them"}};
  schema.update(
      Closed({{kSchemaKey, {{"description", "The schema of the form, for editors"}, {"type", "string"}}},
              {kVersionKey, {{"description", "The version of the form"}, {"const", kFormVersion}}},
              {kUnitKey,
               {{"description", "The unit of all lengths"},
                {"enum", Json::array({"mm", "inch"})},
                {"default", "mm"}}},
              {"spurs",
               {{"description", "The spindle spurs that are defined; the others stay as they are"},
                {"type", "array"},
                {"minItems", 1},
                {"items", Reference("spur")}}}},
             {"spurs"}));
  schema["$defs"] = Definitions();
  return schema;
}

}  // namespace vanzet::define
