// A child process of the test, for limits that a process cannot take back.
#pragma once

#include <functional>

namespace mdlPLM {

/// Runs `work` in a child process; its result (0 to 254) is the child's exit status. A child that
/// is killed or throws gives 255.
int RunInChild(const std::function<int()>& work);

/// In the child: no file may grow beyond `bytes` from here on; a write beyond fails, as on a full
/// disk.
void LimitFileSize(unsigned long long bytes);

/// In the child: permissions hold from here on, for the superuser too.
void ObeyPermissions();

}  // namespace mdlPLM
