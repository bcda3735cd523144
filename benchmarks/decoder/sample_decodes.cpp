// Decodes frames of the corpus for a while and notes now and then where it is:
//     sample_decodes CORPUS SECONDS WORK DECODER
// Prints "address HEX N" for each place it was found at. The clock is the process's own time.
#include <sys/time.h>
#include <ucontext.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <map>

#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/load_set.h"
#include "benchmarks/decoder/picture_buffer.h"

namespace {

constexpr suseconds_t kPeriod = 1000;  // microseconds; the kernel's own period if that is longer
constexpr size_t kMostSamples = 1 << 16;

uintptr_t g_samples[kMostSamples];
volatile size_t g_count = 0;

void onTimer(int, siginfo_t*, void* context) {
    const auto& registers = static_cast<const ucontext_t*>(context)->uc_mcontext.gregs;
    const size_t count = g_count;
    if (count == kMostSamples) return;
    g_samples[count] = static_cast<uintptr_t>(registers[REG_RIP]);
    g_count = count + 1;
}

void setTimer(suseconds_t period) {
    const itimerval timer{{0, period}, {0, period}};
    setitimer(ITIMER_PROF, &timer, nullptr);
}

void sample(CContender& contender, const Task& task, const std::vector<corpus::Stream>& streams,
            int seconds) {
    CPictureBuffer picture(task.target.totalBytes);
    struct sigaction action {};
    action.sa_sigaction = onTimer;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    sigaction(SIGPROF, &action, nullptr);
    const std::clock_t end = std::clock() + seconds * CLOCKS_PER_SEC;
    setTimer(kPeriod);
    while (std::clock() < end)
        for (const corpus::Stream& stream : streams) contender.decode(stream, picture.data());
    setTimer(0);
}

bool run(const std::string& folder, int seconds, const std::string& wantedWork, const std::string& decoder) {
    for (const Work& work : works()) {
        for (const auto& contender : entrants()) {
            if (workName(work) != wantedWork || contender->name() != decoder) continue;
            const Task task(work);
            contender->prepare(task);
            sample(*contender, task, loadSet(folder, work.set), seconds);
            return true;
        }
    }
    std::fprintf(stderr, "sample_decodes: no such work and decoder here\n");
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    const int seconds = argc == 5 ? std::atoi(argv[2]) : 0;
    if (seconds < 1) {
        std::fprintf(stderr, "usage: sample_decodes CORPUS SECONDS WORK DECODER\n");
        return 2;
    }
    try {
        if (!run(argv[1], seconds, argv[3], argv[4])) return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sample_decodes: %s\n", error.what());
        return 1;
    }
    std::map<uintptr_t, unsigned> places;
    for (size_t i = 0; i < g_count; ++i) ++places[g_samples[i]];
    for (const auto& [address, count] : places)
        std::printf("address %llx %u\n", static_cast<unsigned long long>(address), count);
    return 0;
}
