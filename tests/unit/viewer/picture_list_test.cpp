#include "handheld/korvoimgview/picture_list.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

using Names = std::vector<std::wstring>;

TEST(PictureList, KindsByExtension) {
    for (const wchar_t* name : {L"a.jpg", L"A.JPG", L"a.b.jpeg", L"a.Png", L"a.bmp"})
        EXPECT_EQ(FileKind::picture, KindOf(name));
    EXPECT_EQ(FileKind::movie, KindOf(L"m0001.AVI"));
    for (const wchar_t* name : {L"a.txt", L"jpg", L"a.jpg.tmp", L"a.", L""})
        EXPECT_EQ(FileKind::other, KindOf(name));
}

TEST(PictureList, OrderCountsDigitsAsNumbersAndIgnoresCapitals) {
    const Names names = Viewable({{L"snap0010.jpg", 0},
                                  {L"Snap9.jpg", 0},
                                  {L"readme.txt", 0},
                                  {L"m0002.avi", 0},
                                  {L"snap.jpg", 0},
                                  {L"snap0011.JPG", 0}});
    EXPECT_EQ((Names{L"m0002.avi", L"snap.jpg", L"Snap9.jpg", L"snap0010.jpg", L"snap0011.JPG"}), names);
}

TEST(PictureList, EveryTwoDifferentNamesHaveAnOrder) {
    const Names names = {L"snap01.jpg", L"snap1.jpg", L"snap001.jpg", L"snap1a.jpg",
                         L"snap.jpg",   L"1",         L"01",          L""};
    for (const std::wstring& a : names)
        for (const std::wstring& b : names) EXPECT_EQ(a != b, ComesBefore(a, b) != ComesBefore(b, a));
}

TEST(PictureList, NumbersOfAnyLengthAreCompared) {
    EXPECT_TRUE(ComesBefore(L"a99999999999999999999999.jpg", L"a100000000000000000000000.jpg"));
}

TEST(PictureList, NewestCountsOnlyWhatCanBeShown) {
    EXPECT_EQ(L"", Newest({}));
    EXPECT_EQ(L"", Newest({{L"notes.txt", 9}}));
    EXPECT_EQ(L"b.jpg", Newest({{L"a.jpg", 5}, {L"b.jpg", 7}, {L"notes.txt", 9}}));
    EXPECT_EQ(L"m0001.avi", Newest({{L"a.jpg", 5}, {L"m0001.avi", 7}}));
}

TEST(PictureList, OfPicturesOfOneTimeTheLastInOrderIsNewest) {
    EXPECT_EQ(L"snap10.jpg", Newest({{L"snap10.jpg", 5}, {L"snap9.jpg", 5}}));
    EXPECT_EQ(L"snap10.jpg", Newest({{L"snap9.jpg", 5}, {L"snap10.jpg", 5}}));
}

TEST(PictureList, Neighbours) {
    const Names names = {L"a1.jpg", L"a2.jpg", L"a10.jpg"};
    EXPECT_EQ(L"", NameBefore(names, L"a1.jpg"));
    EXPECT_EQ(L"a2.jpg", NameAfter(names, L"a1.jpg"));
    EXPECT_EQ(L"a2.jpg", NameBefore(names, L"a10.jpg"));
    EXPECT_EQ(L"", NameAfter(names, L"a10.jpg"));
    EXPECT_EQ(L"", NameAfter({}, L"a1.jpg"));
    EXPECT_EQ(L"", NameBefore({}, L""));
}

TEST(PictureList, AFileThatIsGoneKeepsItsNeighbours) {
    const Names names = {L"a1.jpg", L"a3.jpg"};
    EXPECT_EQ(L"a1.jpg", NameBefore(names, L"a2.jpg"));
    EXPECT_EQ(L"a3.jpg", NameAfter(names, L"a2.jpg"));
    EXPECT_EQ(0u, PlaceOf(names, L"a2.jpg"));
}

TEST(PictureList, PlaceIgnoresCapitals) {
    const Names names = {L"a1.jpg", L"a3.jpg"};
    EXPECT_EQ(1u, PlaceOf(names, L"A1.JPG"));
    EXPECT_EQ(2u, PlaceOf(names, L"a3.jpg"));
    EXPECT_EQ(0u, PlaceOf(names, L"z.jpg"));
}

}  // namespace
}  // namespace viewer
