#include "handheld/sio/card/faults.h"

namespace sio {
namespace {

struct FaultName {
    Fault fault;
    std::string_view word;
    std::string_view begins;
    std::string_view ends;
};
constexpr FaultName kNames[] = {
    {kUnplugged, "unplugged", "card unplugged", "card inserted"},
    {kSilent, "silent", "card silent", "card silent no more"},
    {kRefuseStill, "refuse-still", "card refuses stills", "card accepts stills"},
    {kGarbage, "garbage", "card sends garbage", "card sends garbage no more"},
    {kShort, "short", "card sends short frames", "card sends short frames no more"},
    {kLong, "long", "card sends long frames", "card sends long frames no more"},
};

void takeWord(const std::string& word, ControlFile& file) {
    for (const FaultName& name : kNames) {
        if (name.word == word) {
            file.faults |= name.fault;
            return;
        }
    }
    file.unknownWords.push_back(word);
}

}  // namespace

ControlFile parseControlFile(std::string_view text) {
    ControlFile file;
    std::string word;
    for (char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        // Zero bytes and bytes beyond ASCII are what UTF-16 and byte-order marks add.
        if (byte == 0 || byte >= 0x80) continue;
        if (byte > ' ') {
            word += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte);
        } else if (!word.empty()) {
            takeWord(word, file);
            word.clear();
        }
    }
    if (!word.empty()) takeWord(word, file);
    return file;
}

std::vector<std::string> faultEvents(Faults before, Faults after) {
    std::vector<std::string> events;
    for (const FaultName& name : kNames) {
        if ((before ^ after) & name.fault) events.emplace_back(after & name.fault ? name.begins : name.ends);
    }
    return events;
}

}  // namespace sio
