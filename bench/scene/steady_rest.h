#pragma once

#include "modeller/body.h"
#include "project/machine_ini.h"

namespace vanzet::scene {

/// The part of the axis along which the billet is free, so that a steady rest can hold it.
struct FreeLength {
  double from, to;
};

/// The place of the steady rest: where the machine has it if the billet is free there, else two thirds of the
/// free length away from the spindle.
double SteadyRestPlace(const project::SteadyRest& machine, const FreeLength& free);

/// A ring about the x axis, its middle at x = 0, with three arms whose round ends touch a billet of that
/// radius; the first arm points up.
Result<modeller::Body> SteadyRestBody(const project::SteadyRest& machine, double billetRadius);

}  // namespace vanzet::scene
