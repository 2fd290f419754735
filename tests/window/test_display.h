#pragma once

namespace vanzet::test {

/// Gives the toolkit a display to draw on: memory, or an X server with OpenGL, as the program was linked.
/// Call it before the first application of Qt is made.
void UseTestDisplay();

}  // namespace vanzet::test
