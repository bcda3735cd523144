#include "platform/handheld/end_program.h"

#include "platform/ce.h"

namespace {

// On CE a process knows itself by a number of the system's; the call that gives it exists only in headers.
const HANDLE kOwnProcess = reinterpret_cast<HANDLE>(66);
constexpr UINT kAborted = 3;

}  // namespace

void EndProgram() {
    TerminateProcess(kOwnProcess, kAborted);
    ExitThread(kAborted);  // the end of a process may reach its calling thread a little later
}
