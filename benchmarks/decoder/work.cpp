#include "benchmarks/decoder/work.h"

#include <stdexcept>

namespace {

const corpus::Set& findSet(const std::string& name) {
    for (const corpus::Set& set : corpus::sets())
        if (set.name == name) return set;
    throw std::out_of_range("no such set: " + name);
}

}  // namespace

const std::vector<Work>& works() {
    static const std::vector<Work> all = {
        {"preview-444", 8}, {"preview-420", 8}, {"preview-444", 9}, {"preview-420", 9},
        {"small-444", 10},  {"preview-444", 1}, {"preview-420", 1}, {"still-422", 8},
        {"still-420", 8},   {"still-422", 10},  {"still-420", 10},  {"vga-422", 8},
    };
    return all;
}

std::string workName(const Work& work) {
    return std::string(work.set) + ":" + std::to_string(work.mode);
}

Task::Task(const Work& work) : set(findSet(work.set)), mode(work.mode), target(targetPicture(work.mode)) {
    const uint32_t width = static_cast<uint32_t>(set.width);
    reduction = width / target.width;
    dropsEachFourth = width * 3 == target.width * 4;
    is565 = target.bytesPerPixel == 2;
}
