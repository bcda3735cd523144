// Reductions 1 and 2 in the fast engines. MCUs are read in batches, and while one is read the blocks of the
// one before are transformed: reading is a chain of steps that wait for each other, transforming is not.
#pragma once
#include <algorithm>

#include "jpeg/x86/strip_decoder.h"
#include "jpeg/x86/wide_transform.h"

namespace jpeg {

template <class Lanes, uint32_t kSide>
class BatchStrips : StripDecoder<Lanes> {
  public:
    BatchStrips(DecoderContext& context, ScanWalk& walk) : StripDecoder<Lanes>(context, walk) {}

    uint32_t decode() {
        if (!setUp()) return decodeStripsPortably(m_context, m_walk);
        return this->decodeAll([this] { decodeOrdinary(); });
    }

  private:
    using Reader = McuReader<Lanes>;
    using Transform = WideTransform<Lanes, kSide>;
    using StripDecoder<Lanes>::m_context;
    using StripDecoder<Lanes>::m_walk;
    using StripDecoder<Lanes>::m_place;

    // Of a batch: the processor guesses the end of the reading wrong once for all of them, but they have to
    // stay in its first cache, beside the tables. A multiple of an MCU's in all usual samplings.
    static constexpr uint32_t kMostBlocks = 24;

    struct Batch {
        explicit Batch(const DecoderContext& context) : before(context) {}
        ReadBlock blocks[kMostBlocks + 1];
        Reader before;    // where it begins
        ScanPlace place;  // its first MCU
        uint32_t mcus = 0;
    };

    // Where a batch's block belongs.
    struct Slot {
        const Transform* transform;
        ComponentWalk* component;
        uint32_t offset;  // from the first MCU's samples
    };

    struct Writing {
        Batch* batch = nullptr;
        ReadBlock* next = nullptr;
        ReadBlock* end = nullptr;
        const Slot* slot = nullptr;
        typename StripDecoder<Lanes>::Predictors before;  // the batch
        bool good = true;
    };

    // False: the scan is not for us.
    bool setUp() {
        for (uint32_t index = 0; index < m_walk.count; ++index) {
            const ComponentWalk& component = m_walk.components[index];
            if (!m_transforms[index].setUp(component.quant)) return false;
            m_mcuBlocks += component.across * component.down;
        }
        for (uint32_t mcu = 0; mcu < kMostBlocks / m_mcuBlocks; ++mcu) setUpSlots(mcu);
        for (Batch& batch : m_batches) {
            for (uint32_t n = 0; n <= kMostBlocks; ++n) setUpBlock(batch.blocks[n], m_slots[n % m_mcuBlocks]);
        }
        return true;
    }

    void setUpSlots(uint32_t mcu) {
        Slot* slot = m_slots + mcu * m_mcuBlocks;
        for (uint32_t index = 0; index < m_walk.count; ++index) {
            ComponentWalk& component = m_walk.components[index];
            for (uint32_t v = 0; v < component.down; ++v) {
                for (uint32_t h = 0; h < component.across; ++h) {
                    const uint32_t column = mcu * component.across + h;
                    *slot++ = {&m_transforms[index], &component, (v * component.stride + column) * kSide};
                }
            }
        }
    }

    void setUpBlock(ReadBlock& block, const Slot& slot) const {
        block.setUp(lookTables<Lanes>(m_context, *slot.component), slot.transform->steps());
        Transform::clear(block);
    }

    void decodeOrdinary() {
        Reader reader(m_context);
        m_writing = {};
        for (uint32_t most = kMostBlocks / m_mcuBlocks;;) {
            Batch& batch = m_batches[m_turn];
            batch.before = reader;
            batch.place = m_place;
            batch.mcus = std::min(most, this->ordinaryMcus());
            const bool read = batch.mcus == 0 || readBatch(batch, reader);
            const Batch* const bad = !finishWriting() ? m_writing.batch : !read ? &batch : nullptr;
            if (bad != nullptr) {
                reader = bad->before;
                goBack(bad->place);
                if (bad->mcus == 1) break;
                most = 1;  // up to the MCU that it is
                continue;
            }
            if (batch.mcus == 0) break;
            this->moveOn(batch.mcus);
            beginWriting(batch);
            m_turn ^= 1;
        }
        reader.putDown(m_context);
    }

    // False: one of its MCUs is for the portable engine; the reader is anything then.
    bool readBatch(Batch& batch, Reader& reader) {
        ReadBlock& end = batch.blocks[batch.mcus * m_mcuBlocks];
        end.place = kPlaceAtEnd;
        const auto meanwhile = [this] {
            if (m_writing.next != m_writing.end) writeNext();
        };
        // A copy, whose fields need no memory.
        Reader copy = reader;
        const bool good = copy.mcus(batch.blocks, meanwhile) && copy.has(kBitsBehind);
        end.place = 0;
        reader = copy;
        return good;
    }

    void beginWriting(Batch& batch) {
        m_writing = {&batch,  batch.blocks,       batch.blocks + batch.mcus * m_mcuBlocks,
                     m_slots, this->predictors(), true};
        seekMcu(m_walk, batch.place, kSide);
    }

    void writeNext() {
        const Slot& slot = *m_writing.slot++;
        ReadBlock& block = *m_writing.next++;
        if (slot.transform->write(block, *slot.component, slot.component->next + slot.offset)) return;
        m_writing.good = false;
        m_writing.next = m_writing.end;
    }

    // The rest of the batch, and the row if it ends there. False: one of its MCUs is for the portable engine;
    // the predictors are those before the batch.
    bool finishWriting() {
        while (m_writing.next != m_writing.end) writeNext();
        if (!m_writing.good) {
            this->restore(m_writing.before);
            return false;
        }
        if (m_writing.batch == nullptr) return true;
        const ScanPlace& place = m_writing.batch->place;
        if (place.column + m_writing.batch->mcus == m_context.mcusPerRow) deliverMcuRow(m_context, place.row);
        return true;
    }

    void goBack(const ScanPlace& place) {
        m_place = place;
        m_writing = {};
        for (Batch& batch : m_batches) {
            for (ReadBlock& block : batch.blocks) Transform::clear(block);
        }
    }

    Transform m_transforms[kMaxScanComponents];
    Slot m_slots[kMostBlocks];
    uint32_t m_mcuBlocks = 0;
    Writing m_writing;
    uint32_t m_turn = 0;
    Batch m_batches[2] = {Batch(m_context), Batch(m_context)};
};

}  // namespace jpeg
