#include "jpeg/x86/symbol_tables.h"

#include "jpeg/huffman.h"
#include "jpeg/typical_tables.h"

namespace jpeg {

namespace {

// The code that begins with the given bits, for all kLookBits bits; length 0 = it is longer.
struct CodeLook {
    struct Code {
        uint8_t length;
        uint8_t symbol;
    };
    Code codes[kLooks];
};

constexpr CodeLook makeCodeLook(const TypicalTable& table) {
    CodeLook look{};
    uint32_t code = 0;
    uint32_t index = 0;
    for (uint32_t length = 1; length <= kLookBits; ++length, code <<= 1) {
        const uint32_t spare = kLookBits - length;
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
    constexpr Front(const CodeLook& look, uint32_t bits, uint32_t count = kLookBits)
        : m_look(look), m_bits(bits), m_count(count) {}
    // The same bits, for the symbols of another table.
    constexpr Front with(const CodeLook& look) const { return Front(look, m_bits, m_count); }
    constexpr uint32_t left() const { return m_count; }
    constexpr uint32_t size() const { return code().symbol & 15u; }
    constexpr uint32_t run() const { return code().symbol >> 4; }
    constexpr bool endsBlock() const { return code().symbol == 0; }
    constexpr bool hasCode() const { return code().length != 0 && code().length <= m_count; }
    constexpr bool hasSymbol() const { return hasCode() && code().length + size() <= m_count; }
    constexpr uint32_t symbolLength() const { return code().length + size(); }
    constexpr int32_t value() const {
        const uint32_t magnitude = size() == 0 ? 0 : shifted(code().length) >> (kLookBits - size());
        return extendSign(magnitude, size());
    }
    constexpr void drop() {
        const uint32_t length = symbolLength();
        m_bits = shifted(length);
        m_count -= length;
    }

  private:
    constexpr CodeLook::Code code() const { return m_look.codes[m_bits]; }
    constexpr uint32_t shifted(uint32_t length) const { return m_bits << length & ((1u << kLookBits) - 1); }
    const CodeLook& m_look;
    uint32_t m_bits;
    uint32_t m_count;
};

// What one look finds.
struct Found {
    uint32_t length = 0;
    uint32_t places = 0;  // to move on
    uint32_t firstPlace = 0;
    int32_t first = 0;
    int32_t last = 0;
    bool ends = false;

    constexpr void add(uint32_t run, int32_t value) {
        if (places != 0) {
            firstPlace = places - 1;
            first = last;
        }
        places += run + 1;
        last = value;
    }
    constexpr uint32_t lastPlace() const { return places != 0 ? places - 1 : 0; }
};

// AC coefficients until there are `most`, and the end of the block.
constexpr void findAc(Front& front, uint32_t most, Found& found) {
    const uint32_t held = front.left();
    for (uint32_t count = 0; count < most && front.hasSymbol() && !front.endsBlock(); ++count) {
        found.add(front.run(), front.value());
        front.drop();
    }
    found.ends = front.hasSymbol() && front.endsBlock();
    if (found.ends) front.drop();
    found.length += held - front.left();
}

// A DC difference.
constexpr Found findDc(Front& front) {
    Found found;
    found.add(0, front.value());
    found.length = front.symbolLength();
    front.drop();
    return found;
}

// Not even one symbol fits.
constexpr uint32_t kNone = Look::kNothingFits << 8;

constexpr uint32_t lookEntry(const Found& found) {
    // Compilation ends here if a first coefficient is larger than its fields.
    if (found.firstPlace > 7 || found.first < -16 || found.first > 15) __builtin_unreachable();
    return static_cast<uint32_t>(found.last) << 24 | (static_cast<uint32_t>(found.first) & 31) << 19 |
           found.firstPlace << 16 | found.lastPlace() << 8 | (found.ends ? Look::kEnds : 0) | found.length;
}

constexpr uint32_t dcEntry(Front front) {
    if (!front.hasSymbol()) return kNone;
    Found found = findDc(front);
    found.ends = true;
    return lookEntry(found);
}

constexpr uint32_t acEntry(Front front) {
    if (!front.hasSymbol()) return kNone;
    Found found;
    findAc(front, 2, found);
    return lookEntry(found);
}

constexpr uint32_t startEntry(Front front, const CodeLook& ac) {
    if (!front.hasSymbol()) return kNone;
    // Beside an AC coefficient there is room for a small difference only.
    const uint32_t most = front.size() <= 4 ? 1 : 0;
    Found found = findDc(front);
    Front behind = front.with(ac);
    findAc(behind, most, found);
    return lookEntry(found);
}

constexpr LookTable makeDcLook(const CodeLook& codes) {
    LookTable look{};
    for (uint32_t bits = 0; bits < kLooks; ++bits) look.entries[bits] = dcEntry(Front(codes, bits));
    return look;
}

constexpr LookTable makeStartLook(const CodeLook& dc, const CodeLook& ac) {
    LookTable look{};
    for (uint32_t bits = 0; bits < kLooks; ++bits) look.entries[bits] = startEntry(Front(dc, bits), ac);
    return look;
}

constexpr LookTable makeAcLook(const CodeLook& codes) {
    LookTable look{};
    for (uint32_t bits = 0; bits < kLooks; ++bits) {
        look.entries[bits] = acEntry(Front(codes, bits));
    }
    return look;
}

constexpr uint16_t skipEntry(Front front) {
    if (!front.hasCode()) return Look::kNothingFits << 8;
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
    return static_cast<uint16_t>((ends ? kSkipEndBit : 0) | places << 8 | length);
}

constexpr SkipTable makeAcSkip(const CodeLook& codes) {
    SkipTable skip{};
    for (uint32_t bits = 0; bits < kLooks; ++bits) {
        skip.entries[bits] = skipEntry(Front(codes, bits));
    }
    return skip;
}

constexpr CodeLook kCodes[4] = {makeCodeLook(kTypicalTables[0]), makeCodeLook(kTypicalTables[1]),
                                makeCodeLook(kTypicalTables[2]), makeCodeLook(kTypicalTables[3])};

// Each by itself: compilers bound the steps of one evaluation.
constexpr LookTable kDcLuminance = makeDcLook(kCodes[0]);
constexpr LookTable kDcChrominance = makeDcLook(kCodes[1]);
constexpr LookTable kAcLuminance = makeAcLook(kCodes[2]);
constexpr LookTable kAcChrominance = makeAcLook(kCodes[3]);
constexpr LookTable kStartLuminanceLuminance = makeStartLook(kCodes[0], kCodes[2]);
constexpr LookTable kStartLuminanceChrominance = makeStartLook(kCodes[0], kCodes[3]);
constexpr LookTable kStartChrominanceLuminance = makeStartLook(kCodes[1], kCodes[2]);
constexpr LookTable kStartChrominanceChrominance = makeStartLook(kCodes[1], kCodes[3]);
constexpr SkipTable kSkipLuminance = makeAcSkip(kCodes[2]);
constexpr SkipTable kSkipChrominance = makeAcSkip(kCodes[3]);

}  // namespace

alignas(64) constexpr LookTable kDcLooks[2] = {kDcLuminance, kDcChrominance};
alignas(64) constexpr LookTable kAcLooks[2] = {kAcLuminance, kAcChrominance};
alignas(64) constexpr SkipTable kAcSkips[2] = {kSkipLuminance, kSkipChrominance};
alignas(64) constexpr LookTable kStartLooks[2][2] = {
    {kStartLuminanceLuminance, kStartLuminanceChrominance},
    {kStartChrominanceLuminance, kStartChrominanceChrominance}};

}  // namespace jpeg
