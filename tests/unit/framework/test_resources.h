/* Numbers of the test program's resources. */
#define IDD_FIELDS 100
#define IDD_SMALL 101
#define IDD_PAGE_ONE 102
#define IDD_PAGE_TWO 103
#define IDD_HIDDEN 104

#define IDC_TEXT 1001
#define IDC_NUMBER 1002
#define IDC_SIZE_FIRST 1003
#define IDC_SIZE_SECOND 1004
#define IDC_SIZE_THIRD 1005
#define IDC_CHECK 1006
#define IDC_OTHER_GROUP 1007
#define IDC_LABEL 1008

#define IDR_MENU 200
#define ID_PLAY 32830
#define ID_STILL 32839
#define ID_VIDEO 32837

#define IDS_SHORT 60001
#define IDS_LONG 60002
#define IDS_NONE 60003
