// Which of the locks of the sandbox this system has, for whoever wants to know. The filter of
// system calls is there whenever a reader is; these two are not on every system.

#pragma once

namespace pinorama {

struct SandboxLocks {
    int landlock = 0;         // the version of Landlock's interface; 0 for none
    bool namespaces = false;  // users may make them
};

// Tries them in a process of its own, which takes two seconds at most. The caller has one thread.
SandboxLocks findSandboxLocks();

}  // namespace pinorama
