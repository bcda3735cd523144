// The help viewer.
#pragma once

// Starts "peghelp.exe" on the camera's help page; a viewer that does not start is not reported.
void ShowHelp();
