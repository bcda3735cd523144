#include "handheld/sio/card/control_log.h"

#include <cstdio>
#include <cstring>

#include "device/control_codes.h"
#include "handheld/sio/card/still_request.h"

namespace sio {
namespace {

template <class... Values>
std::string format(const char* pattern, Values... values) {
    char text[160];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

const char* outcome(bool succeeded) {
    return succeeded ? "" : " failed";
}

std::string previewDetails(const ControlCall& call) {
    return format(" preview mode %u", call.inSize);
}

std::string paramsDetails(const ControlCall& call) {
    ImageParameters p;
    if (!call.in || call.inSize < sizeof p) return {};
    std::memcpy(&p, call.in, sizeof p);
    return format(" params awb %u color %u quality %u metering %u", p.whiteBalance, p.color, p.quality,
                  p.metering);
}

std::string stillDetails(const ControlCall& call) {
    StillRequest request;
    if (!readStillRequest(call.in, call.inSize, request)) return {};
    return format(" still mode %u quality %u sound %d path ", request.mode, request.quality,
                  request.soundModule != 0) +
           toUtf8(stillPath(request));
}

struct Details {
    uint32_t code;
    std::string (*text)(const ControlCall&);
};
constexpr Details kDetails[] = {
    {IOCTL_CAMERA_START_PREVIEW, previewDetails},
    {IOCTL_CAMERA_SET_IMAGE_PARAMS, paramsDetails},
    {IOCTL_CAMERA_CAPTURE_STILL, stillDetails},
};

void appendUtf8(std::string& text, uint32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c < ' ' || c == 0x7F ? '?' : c);
        return;
    }
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr uint8_t lead[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(lead[more] | c >> (6 * more));
    for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

}  // namespace

std::string openLine(uint32_t access, uint32_t share, bool succeeded) {
    return format("open access 0x%08X share %u%s", access, share, outcome(succeeded));
}

std::string closeLine(bool succeeded) {
    return format("close%s", outcome(succeeded));
}

std::string controlLine(const ControlCall& call, bool succeeded) {
    std::string line =
        format("control 0x%08X in %u out %u%s", call.code, call.inSize, call.outSize, outcome(succeeded));
    for (const Details& details : kDetails) {
        if (details.code == call.code) line += details.text(call);
    }
    return line;
}

std::string toUtf8(std::u16string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t c = text[i];
        const bool high = c >= 0xD800 && c < 0xDC00, surrogate = c >= 0xD800 && c < 0xE000;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (surrogate) {
            c = 0xFFFD;
        }
        appendUtf8(result, c);
    }
    return result;
}

}  // namespace sio
