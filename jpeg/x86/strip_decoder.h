// What the strip decoders of the fast engines share: which MCUs are theirs.
#pragma once
#include <algorithm>

#include "jpeg/mcu_loop.h"
#include "jpeg/portable_engine.h"

namespace jpeg {

template <class Lanes>
class StripDecoder {
  protected:
    StripDecoder(DecoderContext& context, ScanWalk& walk) : m_context(context), m_walk(walk) {}

    // All MCUs of the scan: ordinary() takes them from m_place up to one with anything else in it, which is
    // for the portable engine.
    template <class Ordinary>
    uint32_t decodeAll(Ordinary ordinary) {
        while (m_place.row < m_context.mcuRows) {
            ordinary();
            const uint32_t code = continueStripsPortably(m_context, m_walk, m_place, 1);
            if (code != kDecodeOk) return code;
        }
        return kDecodeOk;
    }

    // MCUs from m_place up to the one that stands before a restart point or ends the scan, at most those left
    // in the row.
    uint32_t ordinaryMcus() const {
        const uint32_t rows = m_context.mcuRows - m_place.row;
        const uint32_t inRow = m_context.mcusPerRow - m_place.column;
        const uint32_t left = (rows - 1) * m_context.mcusPerRow + inRow;
        const uint32_t interval = m_context.restartInterval;
        const uint32_t inInterval = interval == 0 ? left : interval - m_place.sinceRestart;
        return std::min(inRow, std::min(inInterval, left) - 1);
    }

    // What an MCU's blocks change of the walk, kept for the case that it has to be decoded again.
    struct Predictors {
        int32_t of[kMaxScanComponents];
    };
    Predictors predictors() const {
        Predictors kept;
        for (uint32_t i = 0; i < kMaxScanComponents; ++i) kept.of[i] = m_walk.components[i].predictor;
        return kept;
    }
    void restore(const Predictors& kept) {
        for (uint32_t i = 0; i < kMaxScanComponents; ++i) m_walk.components[i].predictor = kept.of[i];
    }

    // Returns whether the row is complete.
    bool moveOn(uint32_t mcus) {
        m_place.sinceRestart += mcus;
        m_place.column += mcus;
        if (m_place.column < m_context.mcusPerRow) return false;
        m_place.column = 0;
        ++m_place.row;
        return true;
    }

    DecoderContext& m_context;
    ScanWalk& m_walk;
    ScanPlace m_place;
};

}  // namespace jpeg
