#include "handheld/sio/picture/lettering.h"

namespace sio {
namespace {

// Strokes on a grid of 5 columns and 7 rows: column and row digits, '|' between strokes.
struct Glyph {
    char character;
    const char* strokes;
};
constexpr Glyph kGlyphs[] = {
    {'0', "10 30 41 45 36 16 05 01 10|32 14"},
    {'1', "11 20 26|16 36"},
    {'2', "01 10 30 41 42 06 46"},
    {'3', "01 10 30 41 42 33 13|33 44 45 36 16 05"},
    {'4', "36 30 04 44"},
    {'5', "40 00 03 33 44 45 36 16 05"},
    {'6', "41 30 10 01 05 16 36 45 44 33 13 04"},
    {'7', "00 40 41 16"},
    {'8', "13 02 01 10 30 41 42 33 13 04 05 16 36 45 44 33"},
    {'9', "05 16 36 45 41 30 10 01 02 13 33 42"},
    {'A', "06 02 20 42 46|04 44"},
    {'B', "00 30 41 42 33 44 45 36 06 00|03 33"},
    {'C', "41 30 10 01 05 16 36 45"},
    {'D', "00 30 41 45 36 06 00"},
    {'E', "40 00 06 46|03 33"},
    {'F', "40 00 06|03 33"},
    {'G', "41 30 10 01 05 16 36 45 43 23"},
    {'H', "00 06|40 46|03 43"},
    {'I', "10 30|20 26|16 36"},
    {'J', "40 45 36 16 05"},
    {'K', "00 06|40 03 46"},
    {'L', "00 06 46"},
    {'M', "06 00 23 40 46"},
    {'N', "06 00 46 40"},
    {'O', "10 30 41 45 36 16 05 01 10"},
    {'P', "06 00 30 41 42 33 03"},
    {'Q', "10 30 41 45 36 16 05 01 10|24 46"},
    {'R', "06 00 30 41 42 33 03|23 46"},
    {'S', "41 30 10 01 02 13 33 44 45 36 16 05"},
    {'T', "00 40|20 26"},
    {'U', "00 05 16 36 45 40"},
    {'V', "00 26 40"},
    {'W', "00 16 23 36 40"},
    {'X', "00 46|40 06"},
    {'Y', "00 23 40|23 26"},
    {'Z', "00 40 06 46"},
    {' ', ""},
    {'.', "25 26"},
    {',', "25 17"},
    {':', "21 22|24 25"},
    {';', "21 22|24 16"},
    {'-', "13 33"},
    {'_', "06 46"},
    {'+', "21 25|03 43"},
    {'=', "02 42|04 44"},
    {'/', "06 40"},
    {'\\', "00 46"},
    {'(', "30 21 25 36"},
    {')', "10 21 25 16"},
    {'!', "20 24|25 26"},
    {'?', "01 10 30 41 42 23 24|25 26"},
    {'\'', "20 21"},
    {'"', "10 11|30 31"},
    {'&', "46 11 20 31 04 05 16 26 44"},
    {'*', "21 25|02 44|42 04"},
    {'%', "06 40|00 10|36 46"},
};
constexpr const char* kUnknownGlyph = "00 40 46 06 00";

constexpr float kRows = 6;     // grid steps of a capital
constexpr float kAdvance = 6;  // grid steps from one letter to the next
constexpr float kLetter = 4;   // grid steps of a letter

const char* strokesOf(char character) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
    for (const Glyph& glyph : kGlyphs) {
        if (glyph.character == character) return glyph.strokes;
    }
    return kUnknownGlyph;
}

void addGlyph(Path& path, const char* strokes, float x, float y, float step, float thickness) {
    Path::Contour line;
    for (const char* s = strokes; *s; ++s) {
        if (*s == '|') {
            path.stroke(line, thickness);
            line.clear();
        } else if (*s != ' ') {
            line.push_back({x + (s[0] - '0') * step, y + (s[1] - '0') * step});
            ++s;
        }
    }
    path.stroke(line, thickness);
}

}  // namespace

float textWidth(std::string_view text, float height) {
    return text.empty() ? 0 : ((text.size() - 1) * kAdvance + kLetter) * height / kRows;
}

Path textPath(std::string_view text, float x, float y, float height, float thickness) {
    Path path;
    const float step = height / kRows;
    for (char character : text) {
        addGlyph(path, strokesOf(character), x, y, step, thickness);
        x += kAdvance * step;
    }
    return path;
}

Path centredTextPath(std::string_view text, float x, float y, float height, float thickness) {
    return textPath(text, x - textWidth(text, height) / 2, y, height, thickness);
}

}  // namespace sio
