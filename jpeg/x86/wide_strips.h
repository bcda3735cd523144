// The strips of a scan in the fast engines: what is ordinary here, the rest by the portable engine.
#pragma once
#include <algorithm>

#include "jpeg/portable_engine.h"
#include "jpeg/x86/wide_mcu.h"
#include "jpeg/x86/wide_rows.h"

namespace jpeg {

template <class Lanes, template <class> class Kind>
class WideStrips {
  public:
    WideStrips(DecoderContext& context, ScanWalk& walk) : m_context(context), m_walk(walk) {}

    uint32_t decode() {
        if (!m_blocks.setUp(m_context, m_walk)) return decodeStripsPortably(m_context, m_walk);
        while (m_place.row < m_context.mcuRows) {
            decodeOrdinary();
            const uint32_t code = continueStripsPortably(m_context, m_walk, m_place, 1);
            if (code != kDecodeOk) return code;
        }
        return kDecodeOk;
    }

  private:
    using Blocks = WideMcu<Lanes, Kind>;
    static constexpr uint32_t kStep = Kind<Lanes>::kStep;

    // MCUs up to the one that stands before a restart point or ends the scan.
    uint32_t ordinaryMcus() const {
        const uint32_t rows = m_context.mcuRows - m_place.row;
        const uint32_t left = rows * m_context.mcusPerRow - m_place.column;
        const uint32_t interval = m_context.restartInterval;
        const uint32_t inInterval = interval == 0 ? left : interval - m_place.sinceRestart;
        return (inInterval < left ? inInterval : left) - 1;
    }

    // Stops before an MCU with anything else in it.
    void decodeOrdinary() {
        McuReader<Lanes> bits(m_context);
        seekMcu(m_walk, m_place, kStep);
        uint32_t most = Blocks::kMost;
        for (uint32_t left = ordinaryMcus(); left != 0;) {
            const McuReader<Lanes> before = bits;
            const int32_t predictors[kMaxScanComponents] = {m_walk.components[0].predictor,
                                                            m_walk.components[1].predictor,
                                                            m_walk.components[2].predictor};
            const uint32_t count = std::min({most, left, m_context.mcusPerRow - m_place.column});
            if (!m_blocks.decodeMcus(count, bits, m_walk)) {
                bits = before;
                for (uint32_t i = 0; i < kMaxScanComponents; ++i) {
                    m_walk.components[i].predictor = predictors[i];
                }
                if (count == 1) break;
                seekMcu(m_walk, m_place, kStep);
                most = 1;  // up to the MCU that it is
                continue;
            }
            left -= count;
            m_place.sinceRestart += count;
            m_place.column += count;
            if (m_place.column < m_context.mcusPerRow) continue;
            deliverMcuRow(m_context, m_place.row);
            m_place.column = 0;
            ++m_place.row;
            seekMcu(m_walk, m_place, kStep);
        }
        bits.putDown(m_context);
    }

    DecoderContext& m_context;
    ScanWalk& m_walk;
    ScanPlace m_place;
    Blocks m_blocks;
};

template <class Lanes>
using WholeWide = TransformedWide<Lanes, 8>;
template <class Lanes>
using HalvedWide = TransformedWide<Lanes, 4>;

template <class Lanes>
uint32_t decodeStripsWide(DecoderContext& context, ScanWalk& walk) {
    if (const RowConverter converter = wideRowConverter<Lanes>(context)) context.convertRow = converter;
    switch (context.scaleDiv) {
        case 1:
            return WideStrips<Lanes, WholeWide>(context, walk).decode();
        case 2:
            return WideStrips<Lanes, HalvedWide>(context, walk).decode();
        case 4:
            return WideStrips<Lanes, SummedWide>(context, walk).decode();
        default:
            return WideStrips<Lanes, MeanWide>(context, walk).decode();
    }
}

}  // namespace jpeg
