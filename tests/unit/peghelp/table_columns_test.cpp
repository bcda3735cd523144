#include "handheld/peghelp/table_columns.h"

#include <gtest/gtest.h>

namespace help {
namespace {

using Widths = std::vector<int>;

TEST(TableColumns, SmallColumnsGetWhatTheyNeed) {
    EXPECT_EQ((Widths{30, 170}), ColumnWidths({30, 500}, 200));
    EXPECT_EQ((Widths{20, 90, 90}), ColumnWidths({20, 500, 500}, 200));
    EXPECT_EQ((Widths{20, 70, 110}), ColumnWidths({20, 70, 500}, 200));
}

TEST(TableColumns, LargeColumnsShare) {
    EXPECT_EQ((Widths{100, 100}), ColumnWidths({300, 500}, 200));
}

TEST(TableColumns, TheLastTakesWhatIsLeft) {
    EXPECT_EQ((Widths{10, 190}), ColumnWidths({10, 20}, 200));
    EXPECT_EQ((Widths{200}), ColumnWidths({10}, 200));
    EXPECT_EQ((Widths{}), ColumnWidths({}, 200));
}

TEST(TableColumns, NoColumnVanishes) {
    for (int width : ColumnWidths(Widths(50, 100), 20)) EXPECT_GE(width, 1);
    for (int width : ColumnWidths(Widths(50, 0), 20)) EXPECT_GE(width, 1);
}

}  // namespace
}  // namespace help
