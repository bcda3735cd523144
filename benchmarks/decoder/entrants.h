// Who takes part in a measurement; each program has its own list.
#pragma once
#include "benchmarks/decoder/contender.h"

Contenders entrants();
