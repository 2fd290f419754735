#include "modeller/plain_vrml.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/numbers.h"
#include "modeller/body_size.h"
#include "modeller/mesh_files.h"
#include "modeller/outline.h"

namespace vanzet::modeller {
namespace {

constexpr std::string_view kBlanks = " \t\r\n,";
constexpr std::string_view kBrackets = "{}[]";

/// Words and brackets of a text, one after the other. Commas are blanks.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) { Next(); }

  std::string_view word() const { return word_; }

  /// Goes on if this is the next word.
  bool Skip(std::string_view expected) {
    if (word_ != expected) return false;
    Next();
    return true;
  }

  /// Goes on if these are the next words, which have one blank between them here.
  bool SkipAll(std::string_view expected) {
    for (Words words(expected); !words.word().empty(); words.Next()) {
      if (!Skip(words.word())) return false;
    }
    return true;
  }

  /// Takes a number within the largest coordinate.
  std::optional<double> Number() {
    const auto number = WholeReal(word_);
    if (!number || !(std::abs(*number) <= kLargestCoordinate)) return std::nullopt;
    Next();
    return number;
  }

  std::optional<int> Integer() {
    const auto number = WholeInteger(word_);
    if (number) Next();
    return number;
  }

  void Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    const bool isBracket = !rest_.empty() && kBrackets.find(rest_.front()) != std::string_view::npos;
    const std::size_t end = std::min(rest_.find_first_of(" \t\r\n,{}[]"), rest_.size());
    word_ = rest_.substr(0, isBracket ? 1 : end);
    rest_.remove_prefix(word_.size());
  }

 private:
  std::string_view rest_;
  std::string_view word_;  ///< empty at the end
};

/// Reads nodes; each function returns false for a text that is not plain.
class Reader {
 public:
  explicit Reader(std::string_view text) : words_(text) {}

  bool ReadNodes(const std::string& name, int depth) {
    while (!words_.word().empty() && words_.word() != "]") {
      if (!ReadNode(name, depth)) return false;
    }
    return true;
  }

  bool IsAtEnd() const { return words_.word().empty(); }
  std::vector<NamedMesh> TakeMeshes() { return std::move(meshes_); }

 private:
  bool ReadNode(std::string name, int depth) {
    constexpr int kDeepest = 8;
    if (depth > kDeepest) return false;
    if (words_.Skip("DEF")) {
      name = words_.word();
      words_.Next();
    }
    if (words_.Skip("Shape")) return ReadShape(name);
    if (!words_.SkipAll("Transform {")) return false;
    if (words_.word() == "translation" && !words_.SkipAll("translation 0 0 0")) return false;
    return words_.SkipAll("children [") && ReadNodes(name, depth + 1) && words_.SkipAll("] }");
  }

  bool ReadShape(const std::string& name) {
    Mesh mesh;
    const bool isPlain =
        words_.SkipAll("{ appearance Appearance { material Material { diffuseColor") && SkipColour() &&
        words_.SkipAll("} } geometry IndexedFaceSet { ccw TRUE solid FALSE coord Coordinate {") &&
        ReadPoints(mesh) && words_.Skip("}") && ReadFaces(mesh) && words_.SkipAll("} }");
    if (isPlain && !mesh.triangles.empty()) meshes_.push_back({name, std::move(mesh)});
    return isPlain;
  }

  bool SkipColour() { return words_.Number() && words_.Number() && words_.Number(); }

  bool ReadPoints(Mesh& mesh) {
    if (!words_.SkipAll("point [")) return false;
    while (!words_.Skip("]")) {
      const auto x = words_.Number(), y = words_.Number(), z = words_.Number();
      if (!x || !y || !z) return false;
      mesh.points.emplace_back(*x, *y, *z);
    }
    return true;
  }

  bool ReadFaces(Mesh& mesh) {
    if (!words_.SkipAll("coordIndex [")) return false;
    while (!words_.Skip("]")) {
      if (!ReadFace(mesh)) return false;
    }
    facets_ += mesh.triangles.size();
    return facets_ <= kMostFacets;
  }

  /// A face with more corners becomes a fan of triangles.
  bool ReadFace(Mesh& mesh) {
    const int points = static_cast<int>(mesh.points.size());
    std::vector<int> corners;
    for (;;) {
      const auto corner = words_.Integer();
      if (!corner || *corner >= points || *corner < -1) return false;
      if (*corner == -1) break;
      corners.push_back(*corner);
    }
    if (corners.size() < 3) return false;
    for (std::size_t i = 2; i < corners.size(); ++i) {
      mesh.triangles.push_back({corners[0], corners[i - 1], corners[i]});
    }
    return true;
  }

  Words words_;
  std::vector<NamedMesh> meshes_;
  std::uint64_t facets_ = 0;
};

}  // namespace

std::optional<std::vector<NamedMesh>> ReadPlainVrml(std::string_view text) {
  if (!text.starts_with(kVrmlHead)) return std::nullopt;
  text.remove_prefix(kVrmlHead.size());
  Reader reader(text);
  if (!reader.ReadNodes("", 0) || !reader.IsAtEnd()) return std::nullopt;
  return reader.TakeMeshes();
}

}  // namespace vanzet::modeller
