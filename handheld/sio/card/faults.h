// Faults that a tester asks of the card by writing words into its control file.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sio {

enum Fault : uint32_t {
    kUnplugged = 1 << 0,    // opens and control calls fail, no frames
    kSilent = 1 << 1,       // no frames are announced
    kRefuseStill = 1 << 2,  // still requests fail
    kGarbage = 1 << 3,      // frames cannot be decoded
    kShort = 1 << 4,        // frames of 0 bytes
    kLong = 1 << 5,         // frames of more bytes than a frame may have
};
using Faults = uint32_t;  // set of Fault; 0 is a healthy card

struct ControlFile {
    Faults faults = 0;
    std::vector<std::string> unknownWords;
};

// Reads the file's text: words divided by blanks or line ends, in any case of letters. Text saved as UTF-16
// or with a byte-order mark reads the same.
ControlFile parseControlFile(std::string_view text);

// The log's lines for a change of faults, in the order of the enumeration.
std::vector<std::string> faultEvents(Faults before, Faults after);

}  // namespace sio
