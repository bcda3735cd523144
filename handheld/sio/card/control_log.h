// The lines of the card's log.
//
// One line for each call on the driver, in the order in which they end, and one for each event of the card:
//
//   open access 0xC0000000 share 3
//   close
//   control 0x80000027 in 0 out 0
//   control 0x8000000F in 6 out 0 preview mode 6
//   control 0x8000001B in 16 out 0 params awb 0 color 0 quality 1 metering 1
//   control 0x80000007 in 220 out 0 still mode 1 quality 1 sound 1 path \My Documents\My
//   Pictures\snap0001.jpg card unplugged
//
// "in" and "out" are the sizes as given, decimal; a call that failed has " failed" after these, before any
// details. Values are decimal, sound is 1 when a module was given. Text is UTF-8; control characters of a
// path show as '?'. There are no times and no handles, so logs of equal sessions are equal.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace sio {

struct ControlCall {
    uint32_t code;
    const uint8_t* in;
    uint32_t inSize;
    uint8_t* out;
    uint32_t outSize;
};

std::string openLine(uint32_t access, uint32_t share, bool succeeded);
std::string closeLine(bool succeeded);
std::string controlLine(const ControlCall& call, bool succeeded);

std::string toUtf8(std::u16string_view text);

}  // namespace sio
