// What the recording controller, the live view and the writer thread share.  Portable.
#pragma once
#include <atomic>
#include <cstdint>

#include "capture/chunk_queue.h"

struct RecordingState {
    std::atomic<bool> recording{false};
    std::atomic<uint32_t> writerAborted{0};   // 1: the writer failed and nobody was told yet
    bool feedingOpen = true;                  // the live view may queue frames
    ChunkQueue* movieQueue = nullptr;         // queue of the movie being written, null when there is none
    uint32_t indicatorPhase = 0;              // 0..2, advances with every paint while recording
};
