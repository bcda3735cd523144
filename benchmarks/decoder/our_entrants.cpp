#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/peers/our_decoder.h"

Contenders entrants() {
    return ourDecoders();
}
