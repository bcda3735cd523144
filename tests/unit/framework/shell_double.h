// A stand-in for the two calls of the shell library that the framework makes; records what it was asked.
#pragma once
#include "platform/ce.h"

#include <vector>

struct ShellCalls {
    std::vector<SHINITDLGINFO> initDialog;
    std::vector<SHMENUBARINFO> createMenuBar;  // as they came in
    bool refuseMenuBar = false;
};
ShellCalls& TestShell();
