// Reductions 4 and 8 in the fast engines: MCU by MCU, each block written as it is read.
#pragma once
#include "jpeg/x86/strip_decoder.h"
#include "jpeg/x86/wide_sums.h"

namespace jpeg {

template <class Lanes, template <class> class Kind>
class WideStrips : StripDecoder<Lanes> {
  public:
    WideStrips(DecoderContext& context, ScanWalk& walk) : StripDecoder<Lanes>(context, walk) {
        for (uint32_t index = 0; index < walk.count; ++index) {
            m_tables[index] = lookTables<Lanes>(context, walk.components[index]);
            m_kinds[index].setUp(walk.components[index].quant);
        }
    }

    uint32_t decode() {
        return this->decodeAll([this] { decodeOrdinary(); });
    }

  private:
    using Reader = BlockReader<Lanes>;
    using StripDecoder<Lanes>::m_context;
    using StripDecoder<Lanes>::m_walk;
    using StripDecoder<Lanes>::m_place;
    static constexpr uint32_t kStep = Kind<Lanes>::kStep;

    void decodeOrdinary() {
        Reader reader(m_context);
        while (this->ordinaryMcus() != 0) {
            seekMcu(m_walk, m_place, kStep);
            if (!decodeRow(reader)) break;
        }
        reader.putDown(m_context);
    }

    // The ordinary MCUs that are left in the row; false: up to one that is not.
    bool decodeRow(Reader& reader) {
        for (uint32_t left = this->ordinaryMcus(); left != 0; --left) {
            const auto before = this->predictors();
            if (!decodeMcu(reader)) {
                this->restore(before);
                return false;
            }
            const uint32_t row = m_place.row;
            if (this->moveOn(1)) deliverMcuRow(m_context, row);
        }
        return true;
    }

    // False: it is for the portable engine; the reader is as before.
    bool decodeMcu(Reader& reader) {
        // A copy, whose fields need no memory.
        Reader copy = reader;
        for (uint32_t index = 0; index < m_walk.count; ++index) {
            ComponentWalk& component = m_walk.components[index];
            for (uint32_t v = 0; v < component.down; ++v) {
                for (uint32_t h = 0; h < component.across; ++h) {
                    uint8_t* const out = component.next + (v * component.stride + h) * kStep;
                    if (!m_kinds[index].decode(copy, m_tables[index], component, out)) return false;
                }
            }
        }
        if (!copy.has(kBitsBehind)) return false;
        reader = copy;
        for (ComponentWalk& component : m_walk.components) component.next += component.across * kStep;
        return true;
    }

    LookTables m_tables[kMaxScanComponents];
    Kind<Lanes> m_kinds[kMaxScanComponents];
};

}  // namespace jpeg
