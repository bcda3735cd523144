#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/peers/turbo.h"

Contenders entrants() {
    Contenders all;
    all.push_back(turboDecoder());
    return all;
}
