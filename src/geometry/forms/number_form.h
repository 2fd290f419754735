#pragma once

#include <cstdio>
#include <string>

/// Numbers as text, the same under every locale.
namespace geometry {

/// As "%.*g" writes it in the C locale.
std::string General(double value, int digits = 6);

/// As "%-6.3g" does.
std::string Short(double value);

/// Writes the text to a stream, its NULs too.
void Put(std::FILE* stream, const std::string& text);

}  // namespace geometry
