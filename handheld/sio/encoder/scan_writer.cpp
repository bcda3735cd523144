#include "handheld/sio/encoder/scan_writer.h"

#include "handheld/sio/encoder/huffman_tables.h"

namespace sio {
namespace {

constexpr int kZeroRun = 0xF0;  // sixteen zeros and no value
constexpr int kEndOfBlock = 0x00;
constexpr size_t kEndMarkerBytes = 2;
constexpr size_t kLongestUnit = 2048;  // more than six blocks of 64 longest codes, all stuffed

int magnitudeBits(int value) {
    return value == 0 ? 0 : 32 - __builtin_clz(value < 0 ? -value : value);
}

// Collects bits from the top and writes them as stuffed bytes into memory that has room for them.
class CBitWriter {
  public:
    explicit CBitWriter(uint8_t* out) : m_out(out) {}

    void put(uint32_t bits, int count) {
        m_bits = m_bits << count | bits;
        m_count += count;
        while (m_count >= 8) putByte(static_cast<uint8_t>(m_bits >> (m_count -= 8)));
    }
    void finish() {
        if (m_count > 0) put((1u << (8 - m_count)) - 1, 8 - m_count);
    }
    uint8_t* position() const { return m_out; }
    void moveTo(uint8_t* out) { m_out = out; }

  private:
    void putByte(uint8_t byte) {
        *m_out++ = byte;
        if (byte == 0xFF) *m_out++ = 0;
    }
    uint8_t* m_out;
    uint64_t m_bits = 0;
    int m_count = 0;
};

struct Channel {
    const Plane& plane;
    const CQuantiser& quantiser;
    const CHuffmanCodes& dc;
    const CHuffmanCodes& ac;
    int across, down;  // blocks of one coding unit
    int lastDc = 0;
};

void putValue(CBitWriter& writer, const CHuffmanCodes& codes, int zeros, int value) {
    const int bits = magnitudeBits(value);
    const int symbol = zeros << 4 | bits;
    // A negative value is coded as its ones' complement.
    const uint32_t extra = static_cast<uint32_t>(value < 0 ? value - 1 : value) & ((1u << bits) - 1);
    writer.put(codes.word(symbol) << bits | extra, codes.length(symbol) + bits);
}

void putBlock(CBitWriter& writer, Channel& channel, const uint8_t* samples, uint64_t kept) {
    int16_t zigzag[kCoefficients];
    uint64_t present = channel.quantiser.code(samples, channel.plane.width, zigzag) & kept;
    putValue(writer, channel.dc, 0, zigzag[0] - channel.lastDc);
    channel.lastDc = zigzag[0];
    int last = 0;
    for (present &= ~uint64_t{1}; present != 0; present &= present - 1) {
        const int k = __builtin_ctzll(present);
        int zeros = k - last - 1;
        for (; zeros > 15; zeros -= 16) writer.put(channel.ac.word(kZeroRun), channel.ac.length(kZeroRun));
        putValue(writer, channel.ac, zeros, zigzag[k]);
        last = k;
    }
    if (last != kCoefficients - 1) writer.put(channel.ac.word(kEndOfBlock), channel.ac.length(kEndOfBlock));
}

void putUnit(CBitWriter& writer, Channel& channel, int unitX, int unitY, uint64_t kept) {
    for (int y = 0; y < channel.down; ++y) {
        for (int x = 0; x < channel.across; ++x) {
            const size_t row = static_cast<size_t>(unitY * channel.down + y) * kBlock;
            const size_t column = static_cast<size_t>(unitX * channel.across + x) * kBlock;
            putBlock(writer, channel, channel.plane.samples.data() + row * channel.plane.width + column,
                     kept);
        }
    }
}

}  // namespace

bool writeScan(const Planes& planes, const StepTables& steps, const ScanLimits& limits,
               std::vector<uint8_t>& out) {
    static const CHuffmanCodes lumaDc(kLumaDc), lumaAc(kLumaAc), chromaDc(kChromaDc), chromaAc(kChromaAc);
    const CQuantiser luma(steps.luma), chroma(steps.chroma);
    Channel channels[] = {
        {planes.components[0], luma, lumaDc, lumaAc, planes.sampling.across, planes.sampling.down},
        {planes.components[1], chroma, chromaDc, chromaAc, 1, 1},
        {planes.components[2], chroma, chromaDc, chromaAc, 1, 1},
    };
    const uint64_t kept = ~uint64_t{0} >> (63 - limits.lastCoefficient);

    const size_t start = out.size();
    out.resize(start + kLongestUnit * 8);
    CBitWriter writer(out.data() + start);
    const auto written = [&] { return static_cast<size_t>(writer.position() - out.data()) - start; };
    for (int y = 0; y < planes.unitsDown; ++y) {
        for (int x = 0; x < planes.unitsAcross; ++x) {
            const size_t used = start + written();
            if (used - start + kEndMarkerBytes > limits.bytes) {
                out.resize(start);
                return false;
            }
            if (out.size() - used < kLongestUnit) {
                out.resize(out.size() * 2);
                writer.moveTo(out.data() + used);
            }
            for (Channel& channel : channels) putUnit(writer, channel, x, y, kept);
        }
    }
    writer.finish();
    const size_t length = written();
    if (length + kEndMarkerBytes > limits.bytes) {
        out.resize(start);
        return false;
    }
    out.resize(start + length);
    out.insert(out.end(), {0xFF, 0xD9});
    return true;
}

}  // namespace sio
