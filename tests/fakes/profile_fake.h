// The memory behind tests/fakes/profile_fake.cpp: lets a test prepare and inspect the profile.
#pragma once
#include "framework/profile.h"

#include <string>
#include <variant>
#include <vector>

struct FakeProfileValue {
    std::wstring key;  // without leading backslashes
    std::wstring section;
    std::wstring name;
    std::variant<int, std::wstring> value;
};

// The stored values; a value that is written again keeps its place.
std::vector<FakeProfileValue>& FakeProfileValues();

// "section/name" of every successful write since the last clearing, in order.
std::vector<std::wstring>& FakeProfileWrites();

// Empties both; for the start of every test.
void ClearFakeProfile();
