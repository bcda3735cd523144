// The card's faults, followed from its control file while the program runs. Any thread may ask.
#pragma once
#include <windows.h>

#include <mutex>
#include <string>

#include "handheld/sio/card/faults.h"
#include "handheld/sio/driver/log_file.h"

namespace sio {

class CHealth {
  public:
    CHealth(const std::wstring& controlPath, CLogFile& log) : m_path(controlPath), m_log(log) {}

    // Whether there is a file whose changes have to be looked for.
    bool isWatching() const { return !m_path.empty(); }

    // Looks whether the file has changed, reads it if so and logs what that changes; gives the faults now.
    Faults check();

    // Makes one fault begin or end until the file changes.
    void set(Fault fault, bool present);

  private:
    struct Stamp {
        FILETIME written{};
        uint64_t size = 0;
        bool exists = false;
        bool operator==(const Stamp& o) const {
            return exists == o.exists && size == o.size && CompareFileTime(&written, &o.written) == 0;
        }
    };
    Stamp stampNow() const;
    std::string readFile() const;
    void followFile();
    void change(Faults faults);

    const std::wstring m_path;
    CLogFile& m_log;
    std::mutex m_lock;
    Stamp m_stamp;  // of the file as last read
    Faults m_faults = 0;
};

}  // namespace sio
