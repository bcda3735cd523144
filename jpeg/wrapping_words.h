// Signed values of the inverse DCTs, computed as unsigned words because those wrap without undefined behaviour.
#pragma once
#include <cstdint>

namespace jpeg {

using Word = uint32_t;

inline Word shiftRight(Word value, int bits) {
    return static_cast<Word>(static_cast<int32_t>(value) >> bits);
}

}  // namespace jpeg
