// A private object store for each test.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "platform/ce.h"

class StoreTest : public testing::Test {
  protected:
    StoreTest();
    ~StoreTest() override;

    // The desktop's path of something in the store.
    std::wstring OnDesktop(const wchar_t* path) const { return m_root + path; }

    // Through the stand-in's own calls.
    static bool Exists(const wchar_t* path) { return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES; }
    static void Write(const wchar_t* path, size_t bytes);

    std::wstring m_root;
};

// Sets an environment variable for as long as it lives.
class Setting {
  public:
    Setting(const wchar_t* name, const std::wstring& value);
    ~Setting();
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

  private:
    const wchar_t* m_name;
    std::wstring m_before;
};
