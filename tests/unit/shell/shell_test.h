// Resource ids of the shell's tests.
#pragma once
#define IDM_BAR 100
#define IDM_BAR_MISSING_MENU 101
#define IDM_BAR_TOO_SHORT 102
#define IDM_BAR_MISSING_POPUP 103

#define ID_FILE 200
#define ID_MODE 201
#define ID_REFRESH 202
#define ID_PLAY 210
#define ID_EXIT 211
#define ID_STILL 220
#define ID_VIDEO 221
