#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/peers/avcodec.h"
#include "benchmarks/decoder/peers/our_decoder.h"
#include "benchmarks/decoder/peers/stb.h"
#include "benchmarks/decoder/peers/turbo.h"

Contenders entrants() {
    Contenders all = ourDecoders();
    all.push_back(turboDecoder());
    all.push_back(stbDecoder());
    all.push_back(avcodecDecoder());
    return all;
}
