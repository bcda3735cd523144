#include "jpeg/x86/symbol_tables.h"

#include "jpeg/huffman.h"
#include "jpeg/typical_tables.h"

namespace jpeg {

namespace {

// The code that begins with the given bits, for all kAcLookBits bits; length 0 = it is longer.
struct CodeLook {
    struct Code {
        uint8_t length;
        uint8_t symbol;
    };
    Code codes[1 << kAcLookBits];
};

constexpr CodeLook makeCodeLook(const TypicalTable& table) {
    CodeLook look{};
    uint32_t code = 0;
    uint32_t index = 0;
    for (uint32_t length = 1; length <= kAcLookBits; ++length, code <<= 1) {
        const uint32_t spare = kAcLookBits - length;
        for (uint32_t n = 0; n < table.bits[length - 1]; ++n, ++code, ++index) {
            for (uint32_t below = 0; below < 1u << spare; ++below) {
                look.codes[code << spare | below] = {static_cast<uint8_t>(length), table.values[index]};
            }
        }
    }
    return look;
}

// Takes symbols off the front of a few bits.
class Front {
  public:
    constexpr Front(const CodeLook& look, uint32_t bits, uint32_t count)
        : m_look(look), m_bits(bits << (kAcLookBits - count)), m_count(count) {}
    constexpr uint32_t left() const { return m_count; }
    constexpr uint32_t size() const { return code().symbol & 15u; }
    constexpr uint32_t run() const { return code().symbol >> 4; }
    constexpr bool endsBlock() const { return code().symbol == 0; }
    constexpr bool hasCode() const { return code().length != 0 && code().length <= m_count; }
    constexpr bool hasSymbol() const { return hasCode() && code().length + size() <= m_count; }
    constexpr uint32_t symbolLength() const { return code().length + size(); }
    constexpr int32_t value() const {
        const uint32_t magnitude = size() == 0 ? 0 : shifted(code().length) >> (kAcLookBits - size());
        return extendSign(magnitude, size());
    }
    constexpr void drop() {
        const uint32_t length = symbolLength();
        m_bits = shifted(length);
        m_count -= length;
    }

  private:
    constexpr CodeLook::Code code() const { return m_look.codes[m_bits]; }
    constexpr uint32_t shifted(uint32_t length) const { return m_bits << length & ((1u << kAcLookBits) - 1); }
    const CodeLook& m_look;
    uint32_t m_bits;
    uint32_t m_count;
};

constexpr DcLook makeDcLook(const CodeLook& codes) {
    DcLook look{};
    for (uint32_t bits = 0; bits < 1u << kDcLookBits; ++bits) {
        const Front front(codes, bits, kDcLookBits);
        if (!front.hasSymbol()) continue;
        look.entries[bits] = front.value() * 256 + static_cast<int32_t>(front.symbolLength());
    }
    return look;
}

constexpr uint32_t acEntry(Front front) {
    constexpr uint32_t kNothingFits = 63u << 8;
    if (!front.hasSymbol()) return kNothingFits;
    uint32_t places = 0;
    uint32_t firstPlace = 0;
    int32_t first = 0;
    int32_t last = 0;
    const uint32_t held = front.left();
    for (uint32_t count = 0; count < 2 && front.hasSymbol() && !front.endsBlock(); ++count) {
        if (count != 0) {
            firstPlace = places - 1;
            first = last;
        }
        places += front.run() + 1;
        last = front.value();
        front.drop();
    }
    const bool ends = front.hasSymbol() && front.endsBlock();
    if (ends) front.drop();
    return static_cast<uint32_t>(last) << 26 | (static_cast<uint32_t>(first) & 31) << 21 | firstPlace << 16 |
           (ends ? kEndOfBlockBit : 0) | (places != 0 ? places - 1 : 0) << 8 | (held - front.left());
}

constexpr AcLook makeAcLook(const CodeLook& codes) {
    AcLook look{};
    for (uint32_t bits = 0; bits < 1u << kAcLookBits; ++bits) {
        look.entries[bits] = acEntry(Front(codes, bits, kAcLookBits));
    }
    return look;
}

constexpr uint16_t skipEntry(Front front) {
    constexpr uint16_t kNothingFits = 63u << 8;
    if (!front.hasCode()) return kNothingFits;
    uint32_t places = 0;
    uint32_t length = 0;
    bool ends = false;
    while (!ends && front.hasCode()) {
        length += front.symbolLength();
        ends = front.endsBlock();
        if (!ends) places += front.run() + 1;
        if (!front.hasSymbol()) break;
        front.drop();
    }
    return static_cast<uint16_t>((ends ? kEndOfBlockBit : 0) | places << 8 | length);
}

constexpr AcSkip makeAcSkip(const CodeLook& codes) {
    AcSkip skip{};
    for (uint32_t bits = 0; bits < 1u << kAcLookBits; ++bits) {
        skip.entries[bits] = skipEntry(Front(codes, bits, kAcLookBits));
    }
    return skip;
}

constexpr CodeLook kCodes[4] = {makeCodeLook(kTypicalTables[0]), makeCodeLook(kTypicalTables[1]),
                                makeCodeLook(kTypicalTables[2]), makeCodeLook(kTypicalTables[3])};

constexpr DcLook kDcLuminance = makeDcLook(kCodes[0]);
constexpr DcLook kDcChrominance = makeDcLook(kCodes[1]);
constexpr AcLook kAcLuminance = makeAcLook(kCodes[2]);
constexpr AcLook kAcChrominance = makeAcLook(kCodes[3]);
constexpr AcSkip kSkipLuminance = makeAcSkip(kCodes[2]);
constexpr AcSkip kSkipChrominance = makeAcSkip(kCodes[3]);

}  // namespace

alignas(64) constexpr DcLook kDcLooks[2] = {kDcLuminance, kDcChrominance};
alignas(64) constexpr AcLook kAcLooks[2] = {kAcLuminance, kAcChrominance};
alignas(64) constexpr AcSkip kAcSkips[2] = {kSkipLuminance, kSkipChrominance};

}  // namespace jpeg
