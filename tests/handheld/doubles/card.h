// The camera card behind "SIO1:". What it answers, and the list of calls, is the driver fake's.
#pragma once
#include <cstdint>
#include <vector>

struct CardDouble {
    std::vector<uint8_t> stillRequest;  // the last one, as many bytes as were handed over
    std::vector<uint8_t> picture;  // what the card writes into the file that a request names; empty: nothing
};

CardDouble& TheCard();
