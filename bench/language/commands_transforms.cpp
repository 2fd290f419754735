#include "language/commands.h"

/// Deleting, and transforms: del s100>103 p100, set m1, rot m1 x180, tra m1 x5.
namespace vanzet::language {
namespace {

using drawing::Board;

/// How `del` finds and removes the entities of one letter.
struct Deletion {
  char letter;
  bool (*exists)(const Board& board, int number);
  void (*remove)(Board& board, int first, int last);
};

template <auto Entities>
bool Exists(const Board& board, int number) {
  return (board.workpieces.*Entities).contains(number);
}

template <auto Entities>
void Remove(Board& board, int first, int last) {
  auto& entities = board.workpieces.*Entities;
  entities.erase(entities.lower_bound(first), entities.upper_bound(last));
}

bool ContourExists(const Board& board, int number) {
  return board.FindContour(number) != nullptr;
}

bool LineExists(const Board& board, int number) {
  return board.FindLine(number) != nullptr;
}

using drawing::Workpieces;
// clang-format off
constexpr Deletion kDeletions[] = {
    { 'c', Exists<&Workpieces::circles>,    Remove<&Workpieces::circles>    },
    { 'k', ContourExists, [](Board& board, int first, int last) { board.DeleteContours(first, last); } },
    { 'm', Exists<&Workpieces::transforms>, Remove<&Workpieces::transforms> },
    { 'p', Exists<&Workpieces::points>,     Remove<&Workpieces::points>     },
    { 's', LineExists,    [](Board& board, int first, int last) { board.DeleteLines(first, last); } },
};
// clang-format on

const Deletion& DeletionOf(char letter) {
  const Deletion* row = kDeletions;
  while (row->letter != letter) ++row;
  return *row;
}

/// The number of the axis in the geometry library, from 1.
int AxisOf(const Operand& operand) {
  return operand.letter - 'x' + 1;
}

Result<geometry::Matrix*> FindTransform(const Operand& operand, Surroundings& surroundings) {
  auto& transforms = surroundings.board.workpieces.transforms;
  const auto transform = transforms.find(operand.number);
  if (transform == transforms.end()) return operand.Missing();
  return &transform->second;
}

}  // namespace

Result<void> DeleteEntities(const Operands& operands, Surroundings& surroundings) {
  for (const Operand& operand : operands) {
    // A range may have gaps; an entity that is named alone must exist.
    const bool isRange = operand.last != operand.number;
    if (isRange || DeletionOf(operand.letter).exists(surroundings.board, operand.number)) continue;
    return operand.Missing();
  }
  for (const Operand& operand : operands) {
    DeletionOf(operand.letter).remove(surroundings.board, operand.number, operand.last);
  }
  return {};
}

Result<void> SetTransform(const Operands& operands, Surroundings& surroundings) {
  surroundings.board.workpieces.transforms.insert_or_assign(operands[0].number, geometry::Matrix());
  return {};
}

Result<void> RotateTransform(const Operands& operands, Surroundings& surroundings) {
  VANZET_TRY(const auto transform, FindTransform(operands[0], surroundings));
  drawing::TurnExactly(*transform, operands[1].real, AxisOf(operands[1]));
  return {};
}

Result<void> TranslateTransform(const Operands& operands, Surroundings& surroundings) {
  VANZET_TRY(const auto transform, FindTransform(operands[0], surroundings));
  double move[3] = {0, 0, 0};
  move[AxisOf(operands[1]) - 1] = operands[1].real;
  transform->Translate(move[0], move[1], move[2]);
  return {};
}

Result<drawing::Placement> PlacementOf(const Operand& operand, Surroundings& surroundings) {
  VANZET_TRY(const auto transform, FindTransform(operand, surroundings));
  const auto placement = drawing::PlacementOf(*transform);
  if (placement) return *placement;
  return operand.At(operand.Name() + " tilts the plane of the drawing");
}

}  // namespace vanzet::language
