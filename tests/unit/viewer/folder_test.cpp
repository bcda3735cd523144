#include "handheld/korvoimgview/folder.h"

#include "handheld/companion/read_file.h"
#include "unit/viewer/store_fixture.h"

namespace viewer {
namespace {

using Folder = CStoreFixture;

TEST_F(Folder, PathsOfTheStore) {
    const FilePlace place = PlaceOfPath(L"\\My Documents\\a b\\c.jpg");
    EXPECT_EQ(Root() + L"\\My Documents\\a b", place.folder);
    EXPECT_EQ(L"c.jpg", place.name);
    EXPECT_EQ(Root() + L"\\My Documents\\a b\\c.jpg", place.Path());
    EXPECT_EQ(Root(), PlaceOfPath(L"\\..\\..\\c.jpg").folder);
}

TEST_F(Folder, OtherPaths) {
    EXPECT_EQ(PictureFolder(), PlaceOfPath(L"c.jpg").folder);
    EXPECT_EQ(L"X:\\a", PlaceOfPath(L"X:\\a\\c.jpg").folder);
    EXPECT_EQ(PictureFolder(), PlaceOfPath(L"\\My Documents\\c:d.jpg").folder);
    EXPECT_EQ(L"c:d.jpg", PlaceOfPath(L"\\My Documents\\c:d.jpg").name);
}

TEST_F(Folder, ListsFilesOnlyWithTheirTimes) {
    EXPECT_TRUE(FilesIn(PictureFolder()).empty());
    Write(L"\\My Documents\\My Pictures\\old.jpg", "x");
    Write(L"\\My Documents\\My Pictures\\new.jpg", "x");
    Write(L"\\My Documents\\My Pictures\\folder.jpg\\inside.jpg", "x");
    const auto files = FilesIn(PictureFolder());
    EXPECT_EQ(2u, files.size());
    EXPECT_EQ(L"new.jpg", Newest(files));
}

TEST_F(Folder, WholeFilesUpToALimit) {
    Write(L"\\a", "12345");
    std::vector<uint8_t> bytes;
    EXPECT_EQ(handheld::ReadResult::ok, handheld::ReadWholeFile(Root() + L"\\a", 5, bytes));
    EXPECT_EQ(5u, bytes.size());
    EXPECT_EQ(handheld::ReadResult::tooLarge, handheld::ReadWholeFile(Root() + L"\\a", 4, bytes));
    EXPECT_EQ(handheld::ReadResult::missing, handheld::ReadWholeFile(Root() + L"\\b", 5, bytes));
    EXPECT_EQ(handheld::ReadResult::missing, handheld::ReadWholeFile(Root(), 5, bytes));
}

}  // namespace
}  // namespace viewer
