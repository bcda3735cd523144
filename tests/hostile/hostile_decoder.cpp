// Every picture of a dozen, cut after each of its first 1,000 bytes and with each bit of those turned over,
// in every mode and by every engine. Demands that
//   - only codes come back that callers know, and engines agree with the portable one on code, picture and
//   reader
//   - nothing outside the input and the picture is touched: both lie against pages that nobody may use
//   - not one byte of memory is kept
// and reports how long the slowest decode took.
//
//     hostile_decoder [--every N]     N: only every N-th of the damaged streams (sanitizers are slow)
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/engine_set.h"
#include "support/guarded_bytes.h"
#include "support/hostile_seeds.h"

namespace {

constexpr size_t kDamagedBytes = 1000;
constexpr size_t kInputCapacity = 1 << 16;
constexpr size_t kPictureCapacity = 1 << 18;
constexpr int32_t kModes = 14;
constexpr long long kLibraryBytes = 16 << 10;

class Trial {
  public:
    // One stream in every mode by every engine; false, with a line on stderr, when something is wrong.
    bool survives(const HostileSeed& seed, const std::string& damage, const Bytes& stream) {
        // Alternately against the guard behind and before, so that both are watched.
        uint8_t* const input = m_decodes % 2 == 0 ? m_input.atEnd(stream.size()) : m_input.atStart();
        std::copy(stream.begin(), stream.end(), input);
        for (int32_t mode = 1; mode <= kModes; ++mode) {
            if (!modeSurvives(mode, input, stream.size())) {
                std::fprintf(stderr, "%s, %s, mode %d: %s\n", seed.name.c_str(), damage.c_str(), mode,
                             m_fault.c_str());
                return false;
            }
        }
        return true;
    }

    uint64_t decodes() const { return m_decodes; }
    size_t engines() const { return m_engines.count(); }
    double slowestMilliseconds() const { return m_slowest; }

  private:
    bool modeSurvives(int32_t mode, const uint8_t* input, size_t size) {
        const TargetPicture target = targetPicture(mode);
        DecodeTrace first{};
        for (size_t engine = 0; engine < m_engines.count(); ++engine) {
            GuardedBytes& guarded = engine == 0 ? m_expected : m_actual;
            uint8_t* const picture =
                m_decodes % 2 == 0 ? guarded.atEnd(target.totalBytes) : guarded.atStart();
            if (engine == 0) m_expectedPicture = picture;
            const DecodeTrace trace = timed(engine, mode, input, size, picture);
            if (!EngineSet::isKnownCode(trace.code)) return fault(engine, "unknown code");
            if (trace.outputBytes > target.totalBytes) return fault(engine, "too many bytes");
            if (engine == 0) first = trace;
            if (!(trace == first)) return fault(engine, "another code, length or reader");
            if (std::memcmp(picture, m_expectedPicture, trace.outputBytes) != 0) {
                return fault(engine, "another picture");
            }
        }
        return true;
    }

    DecodeTrace timed(size_t engine, int32_t mode, const uint8_t* input, size_t size, uint8_t* picture) {
        const auto started = std::chrono::steady_clock::now();
        const DecodeTrace trace = m_engines.decodeBy(engine, mode, input, size, picture);
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - started;
        m_slowest = std::max(m_slowest, taken.count());
        ++m_decodes;
        return trace;
    }

    bool fault(size_t engine, const char* what) {
        m_fault = std::string(m_engines.name(engine)) + ": " + what;
        return false;
    }

    EngineSet m_engines;
    GuardedBytes m_input{kInputCapacity};
    GuardedBytes m_expected{kPictureCapacity};
    GuardedBytes m_actual{kPictureCapacity};
    const uint8_t* m_expectedPicture = nullptr;
    uint64_t m_decodes = 0;
    double m_slowest = 0;
    std::string m_fault;
};

// Streams that let each context take the largest buffers it ever will.
void takeBuffers(Trial& trial) {
    const HostileSeed strips = {"widest", JpegStream::untilScan(65520, 16, Sampling::k420).bytes()};
    const HostileSeed planes = {"largest", JpegStream::untilScan(65520, 160, Sampling::k444).bytes()};
    for (const HostileSeed& seed : {strips, planes}) trial.survives(seed, "header", seed.stream);
}

bool seedSurvives(Trial& trial, const HostileSeed& seed, size_t every) {
    const size_t range = std::min(kDamagedBytes, seed.stream.size());
    bool sound = trial.survives(seed, "whole", seed.stream);
    for (size_t length = 0; length <= range; length += every) {
        const Bytes cut(seed.stream.begin(), seed.stream.begin() + static_cast<std::ptrdiff_t>(length));
        sound = trial.survives(seed, "cut after " + std::to_string(length), cut) && sound;
    }
    Bytes flipped = seed.stream;
    for (size_t bit = 0; bit < 8 * range; bit += every) {
        const auto mask = static_cast<uint8_t>(0x80u >> bit % 8);
        flipped[bit / 8] ^= mask;
        sound = trial.survives(seed, "bit " + std::to_string(bit) + " turned", flipped) && sound;
        flipped[bit / 8] ^= mask;
    }
    return sound;
}

// Shares the seeds out among the processors.
bool allSurvive(std::vector<std::unique_ptr<Trial>>& trials, const std::vector<HostileSeed>& seeds,
                size_t every) {
    std::atomic<size_t> next = 0;
    std::atomic<bool> sound = true;
    std::vector<std::thread> workers;
    for (const auto& trial : trials) {
        workers.emplace_back([&, one = trial.get()] {
            for (size_t seed = next++; seed < seeds.size(); seed = next++) {
                if (!seedSurvives(*one, seeds[seed], every)) sound = false;
            }
        });
    }
    for (std::thread& worker : workers) worker.join();
    return sound;
}

// The decoder says on the standard output what it refuses, thousands of times here.
void muteStandardOutput() {
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere >= 0) dup2(nowhere, STDOUT_FILENO);
}

}  // namespace

int main(int argc, char** argv) {
    size_t every = 1;
    if (argc == 3 && std::strcmp(argv[1], "--every") == 0) every = std::strtoul(argv[2], nullptr, 10);
    if (argc != 1 && (argc != 3 || every == 0)) {
        std::fputs("usage: hostile_decoder [--every N]\n", stderr);
        return 2;
    }
    muteStandardOutput();
    const std::vector<HostileSeed> seeds = hostileSeeds();
    std::vector<std::unique_ptr<Trial>> trials;
    for (unsigned n = 0; n < std::max(1u, std::thread::hardware_concurrency()); ++n) {
        trials.push_back(std::make_unique<Trial>());
        takeBuffers(*trials.back());
    }
    const size_t before = mallinfo2().uordblks;
    bool sound = allSurvive(trials, seeds, every);
    const auto kept = static_cast<long long>(mallinfo2().uordblks) - static_cast<long long>(before);
    // Threads leave a little of the library's own behind, once.
    if (kept > kLibraryBytes) sound = false;

    uint64_t decodes = 0;
    double slowest = 0;
    for (const auto& trial : trials) {
        decodes += trial->decodes();
        slowest = std::max(slowest, trial->slowestMilliseconds());
    }
    std::fprintf(stderr, "%zu pictures, %llu decodes by %zu engines, %lld bytes kept, slowest %.1f ms: %s\n",
                 seeds.size(), static_cast<unsigned long long>(decodes), trials.front()->engines(), kept,
                 slowest, sound ? "ok" : "FAILED");
    return sound ? 0 : 1;
}
