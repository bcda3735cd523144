#include "framework/message_map.h"

namespace {

struct Sender {
    UINT id, code;
};

Sender SenderOf(const Message& message) {
    if (message.message == WM_COMMAND) {
        // Menu items and accelerators name no control, and count as clicks whatever the high word says.
        const UINT code = message.lParam ? HIWORD(message.wParam) : BN_CLICKED;
        return {LOWORD(message.wParam), code};
    }
    if (message.message == WM_NOTIFY) {
        const NMHDR& header = *reinterpret_cast<const NMHDR*>(message.lParam);
        return {static_cast<UINT>(header.idFrom), header.code};
    }
    return {0, 0};
}

}  // namespace

const MessageRow* FindRow(const MessageRow* rows, std::size_t count, const Message& message) {
    const Sender sender = SenderOf(message);
    for (const MessageRow* row = rows; row != rows + count; ++row) {
        const bool idFits = row->id == sender.id || row->id == kAnySender;
        if (row->first <= message.message && message.message <= row->last && idFits &&
            row->code == sender.code) {
            return row;
        }
    }
    return nullptr;
}
