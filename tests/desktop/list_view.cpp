#include "desktop/list_view.h"

#include <commctrl.h>

namespace {

constexpr int kRoom = 128;

// A record followed by a text, in memory of the process that owns a window: its messages take addresses
// there.
template <class Record>
class RemoteRecord {
  public:
    explicit RemoteRecord(HWND window) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        m_process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        m_memory = static_cast<Content*>(
            VirtualAllocEx(m_process, nullptr, sizeof(Content), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    }
    ~RemoteRecord() {
        VirtualFreeEx(m_process, m_memory, 0, MEM_RELEASE);
        CloseHandle(m_process);
    }
    RemoteRecord(const RemoteRecord&) = delete;
    RemoteRecord& operator=(const RemoteRecord&) = delete;

    Record* At() const { return &m_memory->record; }
    wchar_t* TextAt() const { return m_memory->text; }
    void Write(const Record& record) { WriteProcessMemory(m_process, At(), &record, sizeof record, nullptr); }
    void WriteText(const std::wstring& text) {
        WriteProcessMemory(m_process, TextAt(), text.c_str(), (text.size() + 1) * sizeof(wchar_t), nullptr);
    }
    std::wstring Text() const {
        wchar_t text[kRoom] = {};
        ReadProcessMemory(m_process, TextAt(), text, sizeof text - sizeof(wchar_t), nullptr);
        return text;
    }

  private:
    struct Content {
        Record record;
        wchar_t text[kRoom];
    };
    HANDLE m_process;
    Content* m_memory;
};

}  // namespace

std::wstring ListCell(HWND list, int row, int column) {
    RemoteRecord<LVITEMW> remote(list);
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = remote.TextAt();
    item.cchTextMax = kRoom;
    remote.Write(item);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.At()));
    return remote.Text();
}

std::wstring ListHeading(HWND list, int column) {
    RemoteRecord<LVCOLUMNW> remote(list);
    LVCOLUMNW heading = {};
    heading.mask = LVCF_TEXT;
    heading.pszText = remote.TextAt();
    heading.cchTextMax = kRoom;
    remote.Write(heading);
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(remote.At()));
    return remote.Text();
}

int ListTextWidth(HWND list, const std::wstring& text) {
    RemoteRecord<LVITEMW> remote(list);
    remote.WriteText(text);
    return static_cast<int>(
        SendMessageW(list, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(remote.TextAt())));
}
