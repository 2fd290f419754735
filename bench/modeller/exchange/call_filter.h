#pragma once

namespace vanzet::modeller {

/// From now on the system calls of this process fail with "Function not implemented", but for those that
/// reading a file, computing, and writing one need. Of the calls that take a process, only this one can be
/// named; threads can be made, processes cannot. Returns false when the kernel has no such filters, or for a
/// processor whose calls are not known here.
///
/// Requires  PR_SET_NO_NEW_PRIVS was set
bool FilterCalls();

}  // namespace vanzet::modeller
