// Decodes a fixed set of pictures in every mode, by every engine that the processor can run, and compares
// code, size and hash of the delivered bytes with a checked-in list. The same list holds for every engine and
// every build: native, the handheld's processor, Windows.
//
//     golden_decoder LIST                 compares, names what differs, exit status 1 when anything does
//     golden_decoder --regenerate LIST    writes the list anew; a change of it is a change of the decoder
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "golden/golden_lines.h"

namespace {

std::vector<std::string> makeLines(const jpeg::ScanEngine& engine) {
    std::vector<std::string> lines;
    for (const std::string& picture : goldenPictures()) {
        const std::vector<std::string> some = goldenLines(picture, engine);
        lines.insert(lines.end(), some.begin(), some.end());
    }
    return lines;
}

std::vector<std::string> readLines(std::istream& file) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

int regenerate(const char* path) {
    std::ofstream file(path, std::ios::binary);
    for (const std::string& line : makeLines(*jpeg::scanEngines().begin())) file << line << '\n';
    file.close();
    if (file) return 0;
    std::cerr << "golden_decoder: cannot write " << path << "\n";
    return 2;
}

size_t countDifferences(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    size_t differences = 0;
    for (size_t i = 0; i < expected.size() || i < actual.size(); ++i) {
        const std::string want = i < expected.size() ? expected[i] : "(nothing)";
        const std::string got = i < actual.size() ? actual[i] : "(nothing)";
        if (want == got) continue;
        ++differences;
        std::cout << "expected " << want << "\n     got " << got << "\n";
    }
    return differences;
}

int compare(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "golden_decoder: cannot open " << path << "\n";
        return 2;
    }
    const std::vector<std::string> expected = readLines(file);
    size_t differences = 0;
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        if (!engine.supported()) continue;
        const std::vector<std::string> actual = makeLines(engine);
        const size_t differing = countDifferences(expected, actual);
        std::cout << engine.name << ": " << actual.size() << " lines, " << differing << " differ\n";
        differences += differing;
    }
    return differences == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--regenerate") == 0) return regenerate(argv[2]);
    if (argc == 2 && argv[1][0] != '-') return compare(argv[1]);
    std::cerr << "usage: golden_decoder [--regenerate] LIST\n";
    return 2;
}
