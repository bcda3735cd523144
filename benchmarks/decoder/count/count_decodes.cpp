// Decodes frames of the corpus, each within a region that region_counter counts:
//     count_decodes CORPUS FRAMES [WORK DECODER]
// FRAMES: the first so many of each set; all works and decoders, or one. Prints "decoded WORK DECODER NUMBER"
// for each region, in order.
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "benchmarks/decoder/count/region_mark.h"
#include "benchmarks/decoder/entrants.h"
#include "benchmarks/decoder/load_set.h"
#include "benchmarks/decoder/picture_buffer.h"

namespace {

void mark(int edge) {
    getpriority(static_cast<__priority_which_t>(kRegionMark), static_cast<id_t>(edge));
}

bool count(CContender& contender, const Work& work, const std::string& folder, size_t frames) {
    const Task task(work);
    if (!contender.prepare(task)) return true;
    const std::vector<corpus::Stream> streams = loadSet(folder, work.set);
    CPictureBuffer picture(task.target.totalBytes);
    // What is done once is done by now.
    if (!contender.decode(contender.adapted(streams[0]), picture.data())) return false;
    for (size_t number = 0; number < std::min(frames, streams.size()); ++number) {
        const corpus::Stream stream = contender.adapted(streams[number]);
        mark(kRegionBegins);
        const bool decoded = contender.decode(stream, picture.data());
        mark(kRegionEnds);
        if (!decoded) return false;
        std::printf("decoded %s %s %zu\n", workName(work).c_str(), contender.name().c_str(), number);
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const int frames = argc >= 3 ? std::atoi(argv[2]) : 0;
    if ((argc != 3 && argc != 5) || frames < 1) {
        std::fprintf(stderr, "usage: count_decodes CORPUS FRAMES [WORK DECODER]\n");
        return 2;
    }
    try {
        for (const auto& contender : entrants()) {
            for (const Work& work : works()) {
                if (argc == 5 && (workName(work) != argv[3] || contender->name() != argv[4])) continue;
                if (count(*contender, work, argv[1], static_cast<size_t>(frames))) continue;
                std::fprintf(stderr, "%s fails at %s\n", contender->name().c_str(), workName(work).c_str());
                return 1;
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "count_decodes: %s\n", error.what());
        return 1;
    }
    return 0;
}
