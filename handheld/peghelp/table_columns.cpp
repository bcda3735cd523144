#include "handheld/peghelp/table_columns.h"

#include <algorithm>

namespace help {

std::vector<int> ColumnWidths(const std::vector<int>& needs, int width) {
    std::vector<int> widths(needs.size(), 0);
    if (needs.empty()) return widths;
    int left = width, open = static_cast<int>(needs.size());
    // Each round settles the columns that are content with a fair share, which makes the others' share
    // larger.
    for (bool settled = true; settled && open > 0;) {
        settled = false;
        const int share = left / open;
        for (size_t i = 0; i < needs.size(); ++i) {
            if (widths[i] || needs[i] > share) continue;
            widths[i] = std::max(needs[i], 1);
            left -= widths[i];
            --open;
            settled = true;
        }
    }
    for (size_t i = 0; i < needs.size(); ++i) {
        if (widths[i]) continue;
        widths[i] = std::max(left / open, 1);
        left -= widths[i];
        --open;
    }
    widths.back() = std::max(widths.back() + left, 1);
    return widths;
}

}  // namespace help
