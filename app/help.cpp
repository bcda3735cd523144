#include "app/help.h"

#include "app/start_process.h"

void ShowHelp() { StartProcess(L"peghelp.exe", L"file:Lumetta Mobile Camera Help.htm"); }
