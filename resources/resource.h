// Numbers of the program's resources, controls and commands; read by the compiler and by the resource compiler.
#pragma once

// Language index: added to the numbers below that exist once per language.
#define LANGUAGE_ENGLISH 0
#define LANGUAGE_SIMPLIFIED_CHINESE 1
#define LANGUAGE_TRADITIONAL_CHINESE 2
#define LANGUAGE_GERMAN 3
#define LANGUAGE_FRENCH 4
#define LANGUAGE_ITALIAN 5
#define LANGUAGE_PORTUGUESE 6
#define LANGUAGE_SPANISH 7
#define LANGUAGE_KOREAN 8
#define LANGUAGE_COUNT 9

// --- Menu and menu bar of the camera screen: + language index ---
#define IDM_CAMERA 348
#define ID_FILE_MENU 32771
#define ID_FILE_EXIT 32827
#define ID_FILE_ABOUT 32829
#define ID_FILE_PLAY 32830
#define ID_MODE_VIDEO 32837
#define ID_MODE_STILL 32839
#define ID_BAR_FILE 32900
#define ID_BAR_MODE 32901

// --- Strings: + step * language index ---
#define IDS_PAGE_IMAGE 60001
#define IDS_PAGE_SETUP 60002
#define IDS_PAGE_FILE 60003
#define IDS_PAGE_VIDEO 60004
#define IDS_PAGE_STEP 100
#define IDS_BAR_FILE 61000
#define IDS_BAR_MODE 61001
#define IDS_BAR_STEP 10

// --- Dialogs ---
#define IDD_CAMERA 102
#define IDD_FOLDER_BROWSER 172
#define IDD_IMAGE_PAGE 193
#define IDD_IMAGE_CHOOSER 202
#define IDD_ABOUT 239
#define IDD_FILE_PAGE 246
#define IDD_SETUP_PAGE 247
#define IDD_SETUP_CHOOSER 248
#define IDD_VIDEO_PAGE 250

// Camera screen
#define IDC_SHUTTER 1601
#define IDC_MENU 1602
#define IDC_PLAY 1603
#define IDC_ZOOM_OUT 1604
#define IDC_ZOOM_IN 1605

// Image settings page and its option chooser
#define IDC_IMAGE_LIST 1070
#define IDC_IMAGE_CHANGE 1030
#define IDC_IMAGE_RESET 1031
#define IDC_IMAGE_HEADING 1097
#define IDC_CHOOSER_HEADING 1098

// Setup page and its option chooser
#define IDC_SETUP_LIST 1079
#define IDC_SETUP_CHANGE 1080
#define IDC_SETUP_RESET 1081
#define IDC_SETUP_HEADING 1100
#define IDC_SETUP_CHOOSER_LIST 1086
#define IDC_SETUP_CHOOSER_DESCRIBE 1087

// File page
#define IDC_PREFIX_LABEL 1114
#define IDC_PREFIX 1088
#define IDC_COUNTER_LABEL 359
#define IDC_COUNTER 1089
#define IDC_COUNTER_RANGE 360
#define IDC_FOLDER_LABEL 1113
#define IDC_FOLDER 1090
#define IDC_FOLDER_BROWSE 1030
#define IDC_FILE_HEADING 1099

// Folder browser
#define IDC_BROWSER_TREE 1039
#define IDC_BROWSER_DELETE 1042
#define IDC_BROWSER_ADD 1043
#define IDC_BROWSER_LABEL 1062

// Video page
#define IDC_VIDEO_SIZE 1115
#define IDC_VIDEO_LARGE 1001
#define IDC_VIDEO_SMALL 1002
#define IDC_VIDEO_SOUND 1116
#define IDC_VIDEO_SOUND_OFF 1003
#define IDC_VIDEO_SOUND_ON 1004
#define IDC_VIDEO_HEADING 1110

// About
#define IDC_ABOUT_PICTURE 1073
#define IDC_ABOUT_TITLE 1074
#define IDC_ABOUT_VERSIONS 1075
#define IDC_ABOUT_TIME 1076
#define IDC_ABOUT_VERSION 1077

// --- Icons ---
#define IDI_CAMERA 128
#define IDI_METERING 195
#define IDI_COLOR 196
#define IDI_RESOLUTION 199
#define IDI_WHITE_BALANCE 200
#define IDI_QUALITY 201

// --- Bitmaps of the strip, 240 x 108 ---
#define IDB_STRIP 133
#define IDB_STRIP_VIDEO 265
#define IDB_STRIP_STILL_SMALL 335
#define IDB_STRIP_STILL_LARGE 336

// Buttons on the strip
#define IDB_SHUTTER 287
#define IDB_SHUTTER_PRESSED 278
#define IDB_MENU 285
#define IDB_MENU_PRESSED 279
#define IDB_PLAY 286
#define IDB_PLAY_PRESSED 280
#define IDB_ZOOM_OUT 281
#define IDB_ZOOM_OUT_PRESSED 282
#define IDB_ZOOM_IN 283
#define IDB_ZOOM_IN_PRESSED 284

// Lettering of the buttons in German, Spanish, French, Italian and Portuguese, for the Still and the Video strips
#define IDB_EUROPEAN_SHUTTER_STILL 174
#define IDB_EUROPEAN_SHUTTER_VIDEO 175
#define IDB_EUROPEAN_MENU_STILL 178
#define IDB_EUROPEAN_MENU_VIDEO 179
#define IDB_EUROPEAN_PLAY_STILL 176
#define IDB_EUROPEAN_PLAY_VIDEO 177
#define IDB_EUROPEAN_ZOOM_OUT_STILL 180
#define IDB_EUROPEAN_ZOOM_OUT_VIDEO 181
#define IDB_EUROPEAN_ZOOM_IN_STILL 182
#define IDB_EUROPEAN_ZOOM_IN_VIDEO 183

// The same in all other languages
#define IDB_OTHER_SHUTTER_STILL 136
#define IDB_OTHER_SHUTTER_VIDEO 137
#define IDB_OTHER_MENU_STILL 155
#define IDB_OTHER_MENU_VIDEO 156
#define IDB_OTHER_PLAY_STILL 134
#define IDB_OTHER_PLAY_VIDEO 135
#define IDB_OTHER_ZOOM_OUT_STILL 143
#define IDB_OTHER_ZOOM_OUT_VIDEO 144
#define IDB_OTHER_ZOOM_IN_STILL 145
#define IDB_OTHER_ZOOM_IN_VIDEO 146

// --- Bitmaps over the live picture; their transparent colour is RGB(255, 0, 255) ---
#define IDB_CENTRE_MARK 401
#define IDB_CARD_FRAME_LARGE 402
#define IDB_CARD_FRAME_SMALL 403
#define IDB_MODE_STILL 404
#define IDB_MODE_VIDEO 405
#define IDB_WHITE_BALANCE 410   // + setting, 1..3
#define IDB_COLOR 413           // + setting, 1..2
#define IDB_COUNTDOWN 420       // + digit, 0..10
#define IDB_SELF_TIMER_IDLE 431
#define IDB_RECORDING_IDLE 440
#define IDB_RECORDING 441       // + phase, 0..2
#define IDB_ZOOM 450
#define IDB_ZOOM_LEVEL 451
#define IDB_MEMORY_CARD 452
#define IDB_BACKGROUND 460      // 240 x 180, under a small live picture

// --- Bitmaps of dialogs ---
#define IDB_FOLDER 173
#define IDB_ABOUT 240
