// A program and everything it starts, directly or through others: counted together, and ended together.
#pragma once
#include <windows.h>

class ProcessFamily {
  public:
    ProcessFamily();
    ~ProcessFamily();  // as End; were this program killed, the system would end them
    ProcessFamily(const ProcessFamily&) = delete;
    ProcessFamily& operator=(const ProcessFamily&) = delete;

    // CreateProcess with its own arguments.  False, and nothing runs, when there is no such program or nobody
    // could end what it starts; otherwise the caller closes the two handles.
    bool Start(const wchar_t* program, wchar_t* commandLine, void* unicodeEnvironment,
               PROCESS_INFORMATION& process);

    DWORD Started() const { return Count().TotalProcesses; }  // so far
    DWORD Running() const { return Count().ActiveProcesses; }

    // Ends whoever still runs, with code 99; false when one is still there after some seconds.
    bool End();

  private:
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION Count() const;

    const HANDLE m_job;
};
