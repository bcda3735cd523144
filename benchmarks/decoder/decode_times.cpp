// Times our decoder and others on the corpus, in turn:  decode_times CORPUS ROUNDS [ENGINE]
// ENGINE: of ours only this one. A round decodes every frame of every set by everybody. Prints
// "time WORK ROUND DECODER NANOSECONDS" (of the thread, a set's frames together) and, before, "likeness WORK
// DECODER LEVELS", how far the pictures are from ours; ends with status 1 when they are not the same
// pictures.
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/likeness.h"
#include "benchmarks/decoder/load_set.h"
#include "benchmarks/decoder/picture_buffer.h"

namespace {

// Frames that one decoder takes before it is the next one's turn: short, for what else the machine does to
// hit all alike, and long enough to have its tables in the cache.
constexpr size_t kTurn = 4;

constexpr double kMostDifference = 8;  // levels; three quarters may be taken from other columns than ours

struct Entry {
    CContender* contender;
    std::vector<corpus::Stream> streams;
    uint64_t nanoseconds;
};

uint64_t threadNanoseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000000000u + static_cast<uint64_t>(now.tv_nsec);
}

class CWorkRunner {
  public:
    CWorkRunner(const Work& work, const Contenders& contenders, const std::vector<corpus::Stream>& streams)
        : m_name(workName(work)),
          m_task(work),
          m_frames(streams.size()),
          m_picture(m_task.target.totalBytes) {
        for (const auto& contender : contenders) {
            if (!contender->prepare(m_task)) continue;
            Entry entry{contender.get(), {}, 0};
            for (const corpus::Stream& stream : streams) entry.streams.push_back(contender->adapted(stream));
            m_entries.push_back(std::move(entry));
        }
    }

    void compare() {
        std::vector<std::vector<uint8_t>> ours;
        for (Entry& entry : m_entries) {
            double difference = 0;
            for (size_t i = 0; i < m_frames; ++i) {
                // What a decoder leaves out shall not be there from the one before.
                std::fill_n(m_picture.data(), m_picture.size(), uint8_t{0xA5});
                decode(entry, i);
                if (&entry == &m_entries.front())
                    ours.emplace_back(m_picture.data(), m_picture.data() + m_picture.size());
                difference +=
                    meanDifference(ours[i].data(), m_picture.data(), m_task) / static_cast<double>(m_frames);
            }
            const std::string name = entry.contender->name();
            std::printf("likeness %s %s %.2f\n", m_name.c_str(), name.c_str(), difference);
            const bool isOurs = name.rfind("ours-", 0) == 0;
            if (isOurs ? difference != 0 : difference > kMostDifference)
                throw std::runtime_error(name + " makes other pictures of " + m_name);
        }
    }

    void run(unsigned round) {
        for (Entry& entry : m_entries) {
            entry.contender->prepare(m_task);
            entry.nanoseconds = 0;
            decode(entry, 0);
        }
        for (size_t first = 0; first < m_frames; first += kTurn) takeTurns(first, round + first / kTurn);
        for (const Entry& entry : m_entries)
            std::printf("time %s %u %s %llu\n", m_name.c_str(), round, entry.contender->name().c_str(),
                        static_cast<unsigned long long>(entry.nanoseconds));
    }

  private:
    void decode(Entry& entry, size_t frame) {
        if (!entry.contender->decode(entry.streams[frame], m_picture.data()))
            throw std::runtime_error(entry.contender->name() + " fails at " + m_name);
    }

    // Everybody decodes the next frames; who comes first changes.
    void takeTurns(size_t first, size_t shift) {
        for (size_t i = 0; i < m_entries.size(); ++i) {
            Entry& entry = m_entries[(i + shift) % m_entries.size()];
            const uint64_t begun = threadNanoseconds();
            for (size_t frame = first; frame < first + kTurn && frame < m_frames; ++frame)
                decode(entry, frame);
            entry.nanoseconds += threadNanoseconds() - begun;
        }
    }

    const std::string m_name;
    const Task m_task;
    const size_t m_frames;
    CPictureBuffer m_picture;
    std::vector<Entry> m_entries;
};

void run(const std::string& folder, unsigned rounds, const std::string& engine) {
    Contenders contenders;
    for (auto& contender : entrants())
        if (engine.empty() || contender->name().rfind("ours-", 0) != 0 ||
            contender->name() == "ours-" + engine)
            contenders.push_back(std::move(contender));
    if (contenders.front()->name().rfind("ours-", 0) != 0)
        throw std::runtime_error("no engine " + engine + " here");
    std::vector<CWorkRunner> runners;
    for (const Work& work : works()) {
        runners.emplace_back(work, contenders, loadSet(folder, work.set));
        runners.back().compare();
    }
    for (unsigned round = 0; round < rounds; ++round)
        for (CWorkRunner& runner : runners) runner.run(round);
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc >= 3 ? std::atoi(argv[2]) : 0;
    if (argc > 4 || rounds < 1) {
        std::fprintf(stderr, "usage: decode_times CORPUS ROUNDS [ENGINE]\n");
        return 2;
    }
    try {
        run(argv[1], static_cast<unsigned>(rounds), argc == 4 ? argv[3] : "");
    } catch (const std::exception& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "decode_times: %s\n", error.what());
        return 1;
    }
    return 0;
}
