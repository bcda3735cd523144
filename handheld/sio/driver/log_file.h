// The log that the user asked for. Any thread may write to it.
#pragma once
#include <windows.h>

#include <string>

namespace sio {

class CLogFile {
  public:
    // An empty path, or a file that cannot be opened, means no log.
    explicit CLogFile(const std::wstring& path);
    ~CLogFile();
    CLogFile(const CLogFile&) = delete;
    CLogFile& operator=(const CLogFile&) = delete;

    // Appends one line at once, whole; others may read the file meanwhile. Keeps the thread's last error.
    void write(const std::string& line);

  private:
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

}  // namespace sio
