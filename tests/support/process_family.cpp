#include "support/process_family.h"

namespace {

constexpr UINT kEndedFromOutside = 99;
constexpr DWORD kPatience = 10000;  // milliseconds

}  // namespace

ProcessFamily::ProcessFamily() : m_job(CreateJobObjectW(nullptr, nullptr)) {
    // Under Wine whoever first asks for the desktop starts its program, which must outlive the family.
    GetDesktopWindow();
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(m_job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

ProcessFamily::~ProcessFamily() {
    End();
    CloseHandle(m_job);
}

bool ProcessFamily::Start(const wchar_t* program, wchar_t* commandLine, void* unicodeEnvironment,
                          PROCESS_INFORMATION& process) {
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    // Only what is started after joining belongs to the family, too.
    if (!CreateProcessW(program, commandLine, nullptr, nullptr, FALSE,
                        CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT, unicodeEnvironment, nullptr, &start,
                        &process))
        return false;
    if (AssignProcessToJobObject(m_job, process.hProcess)) {
        ResumeThread(process.hThread);
        return true;
    }
    TerminateProcess(process.hProcess, kEndedFromOutside);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    process = {};
    return false;
}

bool ProcessFamily::End() {
    TerminateJobObject(m_job, kEndedFromOutside);
    const DWORD start = GetTickCount();
    while (Running() > 0) {
        if (GetTickCount() - start > kPatience) return false;
        Sleep(1);
    }
    return true;
}

JOBOBJECT_BASIC_ACCOUNTING_INFORMATION ProcessFamily::Count() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION count = {};
    QueryInformationJobObject(m_job, JobObjectBasicAccountingInformation, &count, sizeof count, nullptr);
    return count;
}
