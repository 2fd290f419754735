#include "modeller/exchange/three_mf.h"

#include <Model/COM/NMR_DLLInterfaces.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "modeller/body_size.h"
#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// An object of the library, which is released with its owner.
template <class Object>
class Owned {
 public:
  Owned() = default;
  ~Owned() {
    if (object_ != nullptr) NMR::lib3mf_release(object_);
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;

  Object* get() const { return object_; }
  Object** Receive() { return &object_; }

 private:
  Object* object_ = nullptr;
};

using Model = Owned<NMR::PLib3MFModel>;

/// Calls functions of the library until one fails; the rest is then left out.
class Calls {
 public:
  template <class Function, class... Arguments>
  Calls& Do(Function function, Arguments... arguments) {
    if (isGood_) isGood_ = function(arguments...) == LIB3MF_OK;
    return *this;
  }
  bool isGood() const { return isGood_; }

 private:
  bool isGood_ = true;
};

/// The reason that the library has for its last failure with an object, as ": REASON", or nothing.
std::string ReasonOf(NMR::PLib3MFBase* object) {
  DWORD code = 0;
  LPCSTR reason = nullptr;
  if (object == nullptr || NMR::lib3mf_getlasterror(object, &code, &reason) != LIB3MF_OK) return "";
  return reason == nullptr || *reason == '\0' ? "" : ": " + std::string(reason);
}

/// The units, by their numbers in the library.
struct Unit {
  const char* word;
  double millimetres;
};
constexpr std::array<Unit, 6> kUnits = {
    {{"micrometre", 0.001}, {"mm", 1}, {"cm", 10}, {"inch", 25.4}, {"foot", 304.8}, {"metre", 1000}}};

Result<void> AddMesh(NMR::PLib3MFModelMeshObject* object, double unit, Mesh& mesh) {
  DWORD points = 0, triangles = 0;
  NMR::lib3mf_meshobject_getvertexcount(object, &points);
  NMR::lib3mf_meshobject_gettrianglecount(object, &triangles);
  if (mesh.triangles.size() + triangles > kMostFacets) {
    return Fault{"has more than " + std::to_string(kMostFacets) + " facets"};
  }
  const int first = static_cast<int>(mesh.points.size());
  for (DWORD i = 0; i < points; ++i) {
    NMR::MODELMESHVERTEX point = {};
    NMR::lib3mf_meshobject_getvertex(object, i, &point);
    const auto& [x, y, z] = point.m_fPosition;
    mesh.points.emplace_back(x * unit, y * unit, z * unit);
  }
  for (DWORD i = 0; i < triangles; ++i) {
    NMR::MODELMESHTRIANGLE triangle = {};
    NMR::lib3mf_meshobject_gettriangle(object, i, &triangle);
    const auto corner = [&](int k) { return first + static_cast<int>(triangle.m_nIndices[k]); };
    mesh.triangles.push_back({corner(0), corner(1), corner(2)});
  }
  return {};
}

/// The meshes of a model that has all of them in their places.
Result<Mesh> MeshOfModel(NMR::PLib3MFModel* model) {
  DWORD unit = 1;
  NMR::lib3mf_model_getunit(model, &unit);
  Owned<NMR::PLib3MFModelResourceIterator> objects;
  NMR::lib3mf_model_getmeshobjects(model, objects.Receive());
  Mesh mesh;
  BOOL isThere = 0;
  while (NMR::lib3mf_resourceiterator_movenext(objects.get(), &isThere) == LIB3MF_OK && isThere != 0) {
    Owned<NMR::PLib3MFModelResource> object;
    if (NMR::lib3mf_resourceiterator_getcurrent(objects.get(), object.Receive()) != LIB3MF_OK) break;
    VANZET_DO(AddMesh(object.get(), kUnits.at(unit).millimetres, mesh));
  }
  return mesh;
}

Result<void> Read(const fs::path& file, Model& model) {
  Owned<NMR::PLib3MFModelReader> reader;
  NMR::lib3mf_createmodel(model.Receive());
  NMR::lib3mf_model_queryreader(model.get(), "3mf", reader.Receive());
  if (NMR::lib3mf_reader_readfromfileutf8(reader.get(), file.c_str()) == LIB3MF_OK) return {};
  return Fault{"not a readable 3MF file" + ReasonOf(reader.get())};
}

BYTE ByteOf(double part) {
  return static_cast<BYTE>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

/// Adds a body, with a material of its colour.
bool AddBody(const ParcelBody& body, NMR::PLib3MFModel* model, NMR::PLib3MFModelBaseMaterial* materials,
             DWORD group) {
  const Mesh mesh = FacetsOf(body.shape);
  std::vector<NMR::MODELMESHVERTEX> points;
  for (const auto& p : mesh.points) {
    points.push_back({{static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)}});
  }
  std::vector<NMR::MODELMESHTRIANGLE> triangles;
  for (const auto& [a, b, c] : mesh.triangles) {
    triangles.push_back({{static_cast<DWORD>(a), static_cast<DWORD>(b), static_cast<DWORD>(c)}});
  }
  const Colour& colour = body.appearance.colour;
  DWORD material = 0;
  Owned<NMR::PLib3MFModelMeshObject> object;
  Owned<NMR::PLib3MFDefaultPropertyHandler> look;
  Owned<NMR::PLib3MFModelBuildItem> item;
  Calls calls;
  calls.Do(NMR::lib3mf_basematerial_addmaterialutf8, materials, body.name.c_str(), ByteOf(colour.red),
           ByteOf(colour.green), ByteOf(colour.blue), &material);
  calls.Do(NMR::lib3mf_model_addmeshobject, model, object.Receive());
  calls.Do(NMR::lib3mf_object_setnameutf8, object.get(), body.name.c_str());
  calls.Do(NMR::lib3mf_meshobject_setgeometry, object.get(), points.data(), static_cast<DWORD>(points.size()),
           triangles.data(), static_cast<DWORD>(triangles.size()));
  calls.Do(NMR::lib3mf_object_createdefaultpropertyhandler, object.get(), look.Receive());
  calls.Do(NMR::lib3mf_defaultpropertyhandler_setbasematerial, look.get(), group, material);
  calls.Do(NMR::lib3mf_model_addbuilditem, model, object.get(), nullptr, item.Receive());
  return calls.isGood();
}

}  // namespace

Result<TopoDS_Shape> ReadThreeMf(const fs::path& file) {
  Model model, merged;
  VANZET_DO(Read(file, model));
  if (NMR::lib3mf_model_mergetomodel(model.get(), merged.Receive()) != LIB3MF_OK) {
    return Fault{"not a readable 3MF file" + ReasonOf(model.get())};
  }
  DWORD unit = 1;
  NMR::lib3mf_model_getunit(model.get(), &unit);
  NMR::lib3mf_model_setunit(merged.get(), unit);
  VANZET_TRY(const Mesh mesh, MeshOfModel(merged.get()));
  if (mesh.triangles.empty()) return TopoDS_Shape();
  return TopoDS_Shape(FaceOf(mesh));
}

std::string ThreeMfUnit(const fs::path& file) {
  Model model;
  DWORD unit = 1;
  if (!Read(file, model) || NMR::lib3mf_model_getunit(model.get(), &unit) != LIB3MF_OK) return "";
  return kUnits.at(unit).word;
}

Result<void> WriteThreeMf(const std::vector<ParcelBody>& bodies, const fs::path& file) {
  Model model;
  Owned<NMR::PLib3MFModelBaseMaterial> materials;
  Owned<NMR::PLib3MFModelWriter> writer;
  DWORD group = 0;
  Calls calls;
  calls.Do(NMR::lib3mf_createmodel, model.Receive());
  calls.Do(NMR::lib3mf_model_setunit, model.get(), DWORD{NMR::MODELUNIT_MILLIMETER});
  calls.Do(NMR::lib3mf_model_addbasematerialgroup, model.get(), materials.Receive());
  calls.Do(NMR::lib3mf_basematerial_getresourceid, materials.get(), &group);
  bool isGood = calls.isGood();
  for (const ParcelBody& body : bodies) isGood = isGood && AddBody(body, model.get(), materials.get(), group);
  if (!isGood) return Fault{"lib3mf could not write it" + ReasonOf(model.get())};
  calls.Do(NMR::lib3mf_model_querywriter, model.get(), "3mf", writer.Receive());
  calls.Do(NMR::lib3mf_writer_writetofileutf8, writer.get(), file.c_str());
  if (!calls.isGood()) return Fault{"lib3mf could not write it" + ReasonOf(writer.get())};
  return {};
}

}  // namespace vanzet::modeller
