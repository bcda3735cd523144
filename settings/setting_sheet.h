// The settings sheet: shown by Menu..., under the program's name.
#pragma once
#include "app/text_lookup.h"
#include "framework/property_sheet.h"

class CSettingSheet : public CPropertySheet {
  public:
    explicit CSettingSheet(const TextLookup& texts);
};
