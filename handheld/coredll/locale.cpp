#include "handheld/coredll/locale.h"

#include "handheld/coredll/environment.h"

namespace handheld {

LCID DefaultLocale() {
    return NumberVariable(L"HANDHELD_LCID", GetUserDefaultLCID());
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
