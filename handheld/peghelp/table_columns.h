// How wide the columns of a table are.  Portable.
#pragma once
#include <vector>

namespace help {

// Divides `width` among columns that would like the given widths.  Columns that need less than their fair
// share get what they need, the others divide the rest, the last one takes what is left over.  Each gets at
// least 1.
std::vector<int> ColumnWidths(const std::vector<int>& needs, int width);

}  // namespace help
