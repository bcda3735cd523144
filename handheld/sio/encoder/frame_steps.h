// Quantisation steps of the live-view frames.
#pragma once
#include "handheld/sio/encoder/scan_writer.h"

namespace sio {

// Those that the program's frame headers tell the decoder, the same in all three.
const StepTables& frameSteps();

}  // namespace sio
