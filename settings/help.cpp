#include "settings/help.h"

#include "framework/start_process.h"

void ShowHelp() { StartProcess(L"peghelp.exe", L"file:Lumetta Mobile Camera Help.htm"); }
