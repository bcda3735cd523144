// What the decoders are asked to do.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "benchmarks/decoder/corpus/corpus.h"
#include "jpeg/decoder.h"

struct Work {
    const char* set;  // of the corpus
    int32_t mode;     // of the decoder
};

// All of them, in the order of the table.
const std::vector<Work>& works();

// "SET:MODE"
std::string workName(const Work& work);

// The same work in terms that every decoder understands.
struct Task {
    explicit Task(const Work& work);

    corpus::Set set;
    int32_t mode;
    TargetPicture target;
    uint32_t reduction;    // 1, 2, 4 or 8: the frame's size by the target's
    bool dropsEachFourth;  // of rows and columns, at reduction 1
    bool is565;            // else 24-bit B G R
};
