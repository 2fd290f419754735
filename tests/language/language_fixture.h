#pragma once

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "drawing/picks.h"
#include "language/interpreter.h"
#include "support/temporary_folder.h"

namespace vanzet::language {

/// A project that is nothing but maps.
class WorkplaceOfATest final : public Workplace {
 public:
  std::map<std::string, std::string, std::less<>> environment, settings;
  std::map<std::string, std::vector<geometry::Kurve>> figures;

  std::string Environment(std::string_view key) override {
    const auto value = environment.find(key);
    return value == environment.end() ? "" : value->second;
  }
  Result<std::string> Setting(std::string_view key) override {
    const auto value = settings.find(key);
    return value == settings.end() ? std::string() : value->second;
  }
  Result<void> SetSetting(std::string_view key, std::string_view value) override {
    settings.insert_or_assign(std::string(key), std::string(value));
    return {};
  }
  std::vector<std::string> FigureFiles() override {
    std::vector<std::string> names;
    for (const auto& [name, curves] : figures) names.push_back(name);
    return names;
  }
  Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string& name) override {
    if (!figures.contains(name)) return Fault{"figure '" + name + "' does not exist"};
    return figures.at(name);
  }
  Result<void> ShowHelp(const std::string& topic) override {
    helped.push_back(topic);
    return {};
  }

  std::vector<std::string> helped;  ///< the topics on which help was shown
};

/// Lines against a board, a store and a project of the test's own.
class LanguageTest : public testing::Test {
 protected:
  Result<void> Do(const std::string& line) { return language::Run(line, surroundings); }

  /// Runs lines that must succeed.
  void DoAll(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
      const auto run = Do(line);
      ASSERT_TRUE(run) << line << ": " << run.fault().Message();
    }
  }

  /// The message of a line that must fail, or "done".
  std::string Outcome(const std::string& line) {
    const auto run = Do(line);
    return run ? "done" : run.fault().Message();
  }

  /// The vertices of a contour as "x y", followed by direction and centre for an arc.
  std::vector<std::string> Vertices(int number) const {
    const geometry::Kurve* const curve = board.FindContour(number);
    return curve == nullptr ? std::vector<std::string>{"no contour"} : VerticesOf(*curve);
  }
  static std::vector<std::string> VerticesOf(const geometry::Kurve& curve) {
    std::vector<std::string> vertices;
    for (int i = 0; i < curve.nVertices; ++i) {
      geometry::spVertex vertex;
      curve.Get(i, vertex);
      std::string text = Text(vertex.p);
      if (vertex.type != geometry::LINEAR) {
        text += (vertex.type == geometry::ACW ? " about " : " clockwise about ") + Text(vertex.pc);
      }
      vertices.push_back(text);
    }
    return vertices;
  }
  static std::string Text(const geometry::Point& point) { return Text(point.x) + " " + Text(point.y); }
  static std::string Text(double number) {
    std::string text = testing::PrintToString(number);
    return text;
  }

  const test::TemporaryFolder folder;
  project::Variables variables;
  vdm::VdmStore store{folder.path()};
  const PathMap paths;
  drawing::Board board;
  drawing::Picks picks;
  modeller::BodyTable bodies;
  const modeller::MeshTolerance mesh;
  WorkplaceOfATest workplace;
  Surroundings surroundings{variables, store, paths, board, picks, bodies, mesh, workplace};
};

}  // namespace vanzet::language
