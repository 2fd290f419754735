#pragma once

#include <string>

namespace vanzet::modeller {

/// A number for a message: up to six digits, "12.5".
std::string NumberText(double number);

/// A number of a file: six decimals without the zeros at their end, and no sign before a zero. "12.5", "0",
/// "-0.000001".
void AppendDecimals(std::string& text, double number);

}  // namespace vanzet::modeller
