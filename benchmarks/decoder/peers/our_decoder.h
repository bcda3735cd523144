// The program's own decoder, by one of its engines.
#pragma once
#include "benchmarks/decoder/contender.h"

// One contender for each engine that this processor can run, "ours-ENGINE".
Contenders ourDecoders();
