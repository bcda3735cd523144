#include "handheld/companion/locale.h"

#include "handheld/common/settings.h"

namespace handheld {

LCID HandheldLocale() {
    return NumberSetting(L"HANDHELD_LCID", GetUserDefaultLCID(), 0, 0xFFFFF);
}

}  // namespace handheld
