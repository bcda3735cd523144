// Decoding of Huffman symbols and of the coefficients they announce.
#pragma once
#include "jpeg/bit_reader.h"
#include "jpeg/decoder.h"
#include "jpeg/zigzag.h"

namespace jpeg {

// Slots of DecoderContext::huffman: DC tables first, each luminance before chrominance.
inline constexpr uint32_t kDcSlot = 0;
inline constexpr uint32_t kAcSlot = 2;

// Most codes have at most 8 bits and are found with one look; the others grow bit by bit.
// `tooLong` is the code returned when the table has no code that long.
inline uint32_t decodeSymbol(BitReader& reader, const HuffmanTable& table, uint32_t tooLong,
                             uint32_t& symbol) {
    if (!reader.need(8)) return kDecodeInputEnded;
    const uint32_t look = reader.peek(8);
    if (const int32_t known = table.lookLength[look]; known != 0) {
        reader.drop(known);
        symbol = table.lookValue[look];
        return kDecodeOk;
    }
    reader.drop(8);
    int32_t code = static_cast<int32_t>(look);
    int32_t length = 8;
    while (code > table.maxCode[length]) {
        if (length >= table.maxLength) return tooLong;
        if (!reader.need(1)) return kDecodeInputEnded;
        code = code << 1 | static_cast<int32_t>(reader.take(1));
        ++length;
    }
    symbol = table.huffVal[(table.valOffset[length] + code) & 0xFF];
    return kDecodeOk;
}

// The signed value of `size` magnitude bits: the lower half of the range stands for the negative values.
constexpr int32_t extendSign(uint32_t magnitude, uint32_t size) {
    const int32_t value = static_cast<int32_t>(magnitude);
    return size != 0 && magnitude < 1u << (size - 1) ? value - ((1 << size) - 1) : value;
}

// Adds the next difference to the component's DC predictor.
inline uint32_t decodeDc(BitReader& reader, const HuffmanTable& table, int32_t& predictor) {
    uint32_t size = 0;
    if (const uint32_t code = decodeSymbol(reader, table, kDecodeBadDcCode, size)) return code;
    if (!reader.need(static_cast<int32_t>(size))) return kDecodeInputEnded;
    const int32_t difference = extendSign(reader.take(static_cast<int32_t>(size)), size);
    // A damaged stream may add up past 32 bits; the sum wraps.
    predictor = static_cast<int32_t>(static_cast<uint32_t>(predictor) + static_cast<uint32_t>(difference));
    return kDecodeOk;
}

// Walks the 63 AC coefficients of a block. store(place, value) takes each that is not zero, in natural order.
// A run that leads past the last coefficient drops its coefficient and ends the block.
template <class Store>
inline uint32_t decodeAc(BitReader& reader, const HuffmanTable& table, Store store) {
    for (uint32_t k = 1; k < 64;) {
        uint32_t symbol = 0;
        if (const uint32_t code = decodeSymbol(reader, table, kDecodeBadAcCode, symbol)) return code;
        const uint32_t run = symbol >> 4;
        const uint32_t size = symbol & 15;
        if (size != 0) {
            k += run;
            if (!reader.need(static_cast<int32_t>(size))) return kDecodeInputEnded;
            const uint32_t magnitude = reader.take(static_cast<int32_t>(size));
            if (k < 64) store(kZigzag[k], extendSign(magnitude, size));
            ++k;
        } else if (run != 0) {
            k += 16;
        } else {
            break;
        }
    }
    return kDecodeOk;
}

}  // namespace jpeg
