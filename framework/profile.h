// The application's profile: integers and texts that survive a restart, in named sections.
// Plain functions with two bodies: the registry (profile.cpp), and memory (tests/fakes/profile_fake.cpp).
#pragma once
#include <string>

struct Profile {
    // The application's key, kept exactly as it was given.  The registry refuses a leading backslash, so it
    // is left out on opening: "\Zel" is HKEY_CURRENT_USER\Software\Zel, with the sections below it.
    // (ProfileContract.LeadingBackslashOfTheKeyIsLeftOut)
    // Without a key every read gives its default and nothing is written.
    std::wstring key;
};

// Texts longer than this are not read and not written.
inline constexpr std::size_t kLongestProfileText = 2047;

// Reads never fail: a missing section or value, or one of another kind or length, gives `otherwise`.
// Integers are 32 bits and may be negative.  Section and value names do not distinguish case.
int ReadProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int otherwise);
std::wstring ReadProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                             const wchar_t* otherwise);

// Stored at once; creates what is missing and replaces a value of another kind.  False when that failed.
bool WriteProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int value);
bool WriteProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                      const wchar_t* text);
