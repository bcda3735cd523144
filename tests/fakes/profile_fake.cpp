#include "tests/fakes/profile_fake.h"

#include <algorithm>
#include <cwctype>

namespace {

bool SameName(const std::wstring& a, const std::wstring& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return std::towlower(x) == std::towlower(y); });
}

std::wstring StoredKey(const Profile& profile) {
    const std::size_t start = profile.key.find_first_not_of(L'\\');
    return start == std::wstring::npos ? std::wstring() : profile.key.substr(start);
}

FakeProfileValue* Find(const Profile& profile, const wchar_t* section, const wchar_t* name) {
    auto& values = FakeProfileValues();
    const auto found = std::find_if(values.begin(), values.end(), [&](const FakeProfileValue& value) {
        return SameName(value.key, StoredKey(profile)) && SameName(value.section, section) &&
               SameName(value.name, name);
    });
    return found != values.end() ? &*found : nullptr;
}

template <class Value>
Value Read(const Profile& profile, const wchar_t* section, const wchar_t* name, const Value& otherwise) {
    const FakeProfileValue* found = Find(profile, section, name);
    const Value* value = found ? std::get_if<Value>(&found->value) : nullptr;
    return value ? *value : otherwise;
}

bool Write(const Profile& profile, const wchar_t* section, const wchar_t* name,
           std::variant<int, std::wstring> value) {
    if (StoredKey(profile).empty()) return false;
    if (FakeProfileValue* found = Find(profile, section, name)) {
        found->value = std::move(value);
    } else {
        FakeProfileValues().push_back({StoredKey(profile), section, name, std::move(value)});
    }
    FakeProfileWrites().push_back(std::wstring(section) + L"/" + name);
    return true;
}

}  // namespace

std::vector<FakeProfileValue>& FakeProfileValues() {
    static std::vector<FakeProfileValue> values;
    return values;
}

std::vector<std::wstring>& FakeProfileWrites() {
    static std::vector<std::wstring> writes;
    return writes;
}

void ClearFakeProfile() {
    FakeProfileValues().clear();
    FakeProfileWrites().clear();
}

int ReadProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int otherwise) {
    return Read<int>(profile, section, name, otherwise);
}

std::wstring ReadProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                             const wchar_t* otherwise) {
    const std::wstring text = Read<std::wstring>(profile, section, name, otherwise);
    return text.size() <= kLongestProfileText ? text : otherwise;
}

bool WriteProfileInt(const Profile& profile, const wchar_t* section, const wchar_t* name, int value) {
    return Write(profile, section, name, value);
}

bool WriteProfileText(const Profile& profile, const wchar_t* section, const wchar_t* name,
                      const wchar_t* text) {
    return std::wstring(text).size() <= kLongestProfileText &&
           Write(profile, section, name, std::wstring(text));
}
