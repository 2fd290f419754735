#pragma once

/// The functions of the host in memory. The test program exports them under the names that a module looks
/// for, so that they serve the module's folders linked into the test as well as a module that it loads.
namespace vanzet::test {

/// The address of a function of the host in memory, or null when it has none of that name.
/// Requires: the program exports its symbols.
void* FakeFunction(const char* name);

}  // namespace vanzet::test
