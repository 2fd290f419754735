#pragma once

namespace vanzet::test {

/// Has Qt draw into memory, and keeps it from complaining that windows there are not such on a screen.
/// Settings go to a folder that is gone when the process ends. Call it before the first application of Qt is
/// made.
void UseMemoryAsDisplay();

}  // namespace vanzet::test
