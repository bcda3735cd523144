#include "handheld/loader/faults.h"

#include <initializer_list>

#include "handheld/loader/guarded_memory.h"
#include "handheld/loader/image.h"
#include "handheld/loader/system_calls.h"

namespace {

constexpr int kIllegal = 4, kTrap = 5, kBus = 7, kSegment = 11, kTime = 14;

void Place(Line& line, uint32_t address) {
    line << Hex{address} << " (";
    if (const ImageSymbol* const symbol = SymbolAround(address))
        line << symbol->name << " of the image";
    else if (!DescribeInImage(address, line) && !DescribeGuarded(address, line))
        line << "outside the image";
    line << ")";
}

void OnFault(int signal, sys::SignalInfo* info, sys::SignalContext* context) {
    const uint32_t at = context->registers[15];
    Line line;
    if (signal == kTime) {
        line << "no end in time";
    } else if (signal == kIllegal || signal == kTrap) {
        line << "an instruction that the processor does not know";
    } else if (signal == kBus && info->code < 0) {  // from alignment_watch, as soon as it can be delivered
        line << "misaligned access to ";
        Place(line, info->value);
    } else if (info->address == at) {
        line << "a jump to what is no code";
    } else {
        line << "no access to ";
        Place(line, info->address);
    }
    line << ", at ";
    Place(line, at);
    Stop(line);
}

}  // namespace

void HandleFaults() {
    for (const int signal : {kIllegal, kTrap, kBus, kSegment, kTime}) sys::Handle(signal, OnFault);
}
