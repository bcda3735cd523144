// Decodes JPEG files, or the card's bare scan data, with the program's own decoder. zeldecode --help tells
// more.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "device/preview_headers.h"
#include "jpeg/decoder.h"

namespace {

constexpr int kStatusUsage = 2;

constexpr char kUsage[] =
    "usage: zeldecode MODE INPUT OUTPUT\n"
    "       zeldecode --frame T MODE INPUT OUTPUT\n"
    "       zeldecode --batch LIST\n"
    "\n"
    "Decodes the JPEG stream in INPUT and writes the bytes of the picture to OUTPUT.\n"
    "MODE 1..6 gives RGB565 of 320x240 240x180 160x120 80x60 40x30 20x15, 8..13 the same\n"
    "sizes as rows of B G R, 7 and 14 the luma alone as 240x180.\n"
    "\n"
    "--frame T     INPUT is bare scan data; header template T (1, 2 or 3) goes before it\n"
    "--batch LIST  LIST holds the arguments of one picture per line, in double quotes\n"
    "              where they contain blanks\n"
    "\n"
    "Prints \"code C width W height H bytes N\" for each picture: the decoder's code (0 is\n"
    "success), the size that MODE stands for and the number of bytes written. The exit\n"
    "status is 0 when the decoder returned, whatever its code, and 2 for wrong arguments,\n"
    "an INPUT that cannot be read or an OUTPUT that cannot be written.\n";

using Arguments = std::vector<std::string>;

struct Job {
    int32_t templateNumber = 0;  // 0 = INPUT is a whole stream
    int32_t mode = 0;
    std::string input;
    std::string output;
};

bool fail(const std::string& message) {
    std::cout.flush();
    std::cerr << "zeldecode: " << message << "\n";
    return false;
}

bool parseNumber(const std::string& text, int32_t& number) {
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    number = static_cast<int32_t>(value);
    return !text.empty() && *end == 0 && number == value;
}

bool parseJob(const Arguments& arguments, Job& job) {
    size_t at = 0;
    if (!arguments.empty() && arguments[0] == "--frame") {
        if (arguments.size() < 2 || !parseNumber(arguments[1], job.templateNumber) ||
            FindPreviewHeader(job.templateNumber) == nullptr) {
            return fail("--frame needs a template number: 1, 2 or 3");
        }
        at = 2;
    }
    if (arguments.size() != at + 3) return fail("expected MODE INPUT OUTPUT (see zeldecode --help)");
    if (!parseNumber(arguments[at], job.mode)) return fail("not a mode number: " + arguments[at]);
    job.input = arguments[at + 1];
    job.output = arguments[at + 2];
    return true;
}

bool readFile(const std::string& path, std::vector<uint8_t>& bytes) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return fail("cannot open " + path);
    std::ostringstream content;
    // Copying nothing at all counts as a failure of the target stream, so an empty file needs its own look.
    if (file.peek() != std::ifstream::traits_type::eof() && !(content << file.rdbuf())) {
        return fail("cannot read " + path);
    }
    if (file.bad()) return fail("cannot read " + path);
    const std::string text = content.str();
    bytes.insert(bytes.end(), text.begin(), text.end());
    return true;
}

bool writeFile(const std::string& path, const uint8_t* bytes, size_t count) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) return fail("cannot create " + path);
    file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    file.close();
    if (file) return true;
    std::remove(path.c_str());
    return fail("cannot write " + path);
}

// Every picture starts from a fresh context, so a batch gives what single calls give.
bool run(const Job& job) {
    std::vector<uint8_t> stream;
    if (const PreviewHeader* header = FindPreviewHeader(job.templateNumber)) {
        stream.assign(header->begin(), header->end());
    }
    if (!readFile(job.input, stream)) return false;

    const TargetPicture target = targetPicture(job.mode);
    std::vector<uint8_t> picture(target.totalBytes);
    const auto context = std::make_unique<DecoderContext>();
    buildHuffmanTables(*context);
    context->cursors.inputCursor = stream.data();
    context->cursors.inputRemaining = static_cast<uint32_t>(stream.size());
    context->cursors.outputCursor = picture.data();
    const uint32_t code = decode(job.mode, *context, 0);
    const uint32_t delivered = context->cursors.outputBytes;
    releaseBuffers(*context);

    if (!writeFile(job.output, picture.data(), delivered)) return false;
    std::printf("code %u width %u height %u bytes %u\n", code, target.width, target.height, delivered);
    std::fflush(stdout);
    return true;
}

// Blanks part the words of a line, except within double quotes.
Arguments splitWords(const std::string& line) {
    Arguments words;
    bool inWord = false;
    bool quoted = false;
    for (char character : line) {
        if (character == '"') {
            quoted = !quoted;
            if (!inWord) words.emplace_back();
            inWord = true;
        } else if (!quoted && (character == ' ' || character == '\t' || character == '\r')) {
            inWord = false;
        } else {
            if (!inWord) words.emplace_back();
            inWord = true;
            words.back() += character;
        }
    }
    return words;
}

// A line that fails does not keep the others from being done.
bool runBatch(const std::string& listPath) {
    std::vector<uint8_t> list;
    if (!readFile(listPath, list)) return false;
    std::istringstream lines(std::string(list.begin(), list.end()));
    std::string line;
    bool allRan = true;
    for (int number = 1; std::getline(lines, line); ++number) {
        const Arguments words = splitWords(line);
        if (words.empty()) continue;
        Job job;
        if (parseJob(words, job) && run(job)) continue;
        allRan = fail("(line " + std::to_string(number) + " of " + listPath + ")");
    }
    return allRan;
}

bool runArguments(const Arguments& arguments) {
    if (!arguments.empty() && arguments[0] == "--batch") {
        if (arguments.size() != 2) return fail("--batch needs one LIST (see zeldecode --help)");
        return runBatch(arguments[1]);
    }
    Job job;
    return parseJob(arguments, job) && run(job);
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments arguments(argv + 1, argv + argc);
    if (arguments.size() == 1 && (arguments[0] == "--help" || arguments[0] == "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    return runArguments(arguments) ? 0 : kStatusUsage;
}
