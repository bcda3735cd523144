// A decoder that takes part.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/decoder/work.h"

class CContender {
  public:
    virtual ~CContender() = default;
    virtual std::string name() const = 0;

    // Gets ready for the frames of a task, once; false: it cannot do such a thing.
    virtual bool prepare(const Task& task) = 0;

    // A frame in the form that this decoder takes it.
    virtual corpus::Stream adapted(const corpus::Stream& stream) const { return stream; }

    // Decodes an adapted frame into target.totalBytes at `picture`; false when it fails. What can be kept
    // from frame to frame is kept.
    virtual bool decode(const corpus::Stream& stream, uint8_t* picture) = 0;
};

using Contenders = std::vector<std::unique_ptr<CContender>>;

// Copies a whole frame's pixels, rows inRowBytes apart, without each fourth row and column.
void copyThreeOfFour(const uint8_t* in, size_t inRowBytes, const Task& task, uint8_t* picture);
