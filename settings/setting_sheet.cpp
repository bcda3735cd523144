#include "settings/setting_sheet.h"

CSettingSheet::CSettingSheet(const TextLookup& texts) : CPropertySheet(LookUpText(texts, kTextTitle)) {}
