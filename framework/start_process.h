// Other programs of the handheld.
#pragma once

// Starts a program with its arguments (null for none) and keeps no handle.  False when it does not start.
bool StartProcess(const wchar_t* program, const wchar_t* arguments);
