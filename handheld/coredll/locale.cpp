#include "handheld/coredll/locale.h"

#include "handheld/common/settings.h"

namespace handheld {

LCID DefaultLocale() {
    return NumberSetting(L"HANDHELD_LCID", GetUserDefaultLCID(), 1, 0xFFFFF);
}

}  // namespace handheld

using handheld::DefaultLocale;

extern "C" {

LCID WINAPI HandheldGetSystemDefaultLCID() {
    return DefaultLocale();
}
LCID WINAPI HandheldGetUserDefaultLCID() {
    return DefaultLocale();
}
LANGID WINAPI HandheldGetSystemDefaultLangID() {
    return LANGIDFROMLCID(DefaultLocale());
}
LANGID WINAPI HandheldGetUserDefaultLangID() {
    return LANGIDFROMLCID(DefaultLocale());
}
LANGID WINAPI HandheldGetSystemDefaultUILanguage() {
    return LANGIDFROMLCID(DefaultLocale());
}
LANGID WINAPI HandheldGetUserDefaultUILanguage() {
    return LANGIDFROMLCID(DefaultLocale());
}

}  // extern "C"
