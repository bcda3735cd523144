// A help page: blocks of text, one below the other.  Portable.
#pragma once
#include <string>
#include <vector>

namespace help {

// Text of one kind.  Blanks are single; '\n' breaks the line.
struct Run {
    std::wstring text;
    bool bold = false;
    bool key = false;   // the name of a key or button, shown in a frame
    std::wstring link;  // the anchor it leads to, or empty
};
using Runs = std::vector<Run>;

struct Block {
    enum Kind { heading, paragraph, item, row, rule } kind = paragraph;
    int level = 0;                      // heading 1..3; of an item 1 and up, and of what stands in an item
    std::wstring marker;                // of an item: a dot or its number; empty for further paragraphs in it
    std::vector<std::wstring> anchors;  // names that lead here
    Runs runs;                          // except in a row
    std::vector<Runs> cells;            // of a row
    bool head = false;                  // a row of headings
    bool firstRow = false;              // a row that begins a table
};

struct Page {
    std::wstring title;
    std::vector<Block> blocks;
};

// Reads the subset of HTML that help pages use: headings, paragraphs, lists, tables, rules, bold text, keys,
// links inside the page.  Tags beyond it are passed over, their text is kept.  Takes any text without
// failing.
Page ReadPage(const std::wstring& html);

}  // namespace help
