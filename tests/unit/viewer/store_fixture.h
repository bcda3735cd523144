// A private object store for one test.
#pragma once
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace viewer {

class CStoreFixture : public testing::Test {
  protected:
    CStoreFixture();
    ~CStoreFixture() override;

    // Writes a file of the store, "\Windows\a.htm", and the folders above it; a later file is newer.
    void Write(const std::wstring& path, const std::string& bytes);

    const std::wstring& Root() const { return m_root; }

  private:
    std::wstring m_root;
    ULONGLONG m_time = 126'000'000'000'000'000;  // FILETIME
};

// A BMP file of one colour.
std::string Bmp(int width, int height, uint32_t colour);

}  // namespace viewer
