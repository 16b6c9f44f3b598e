// Ids of resources, controls and commands; shared by the resource script and the program.
#pragma once

// Pictures
#define IDI_INKWRIGHT 128
#define IDB_EDITOR_TOOLS 137

// Dialogs
#define IDD_ALARM_TIME 166
#define IDD_SAVE_AS 172

// Controls
#define IDC_LABEL -1
#define IDC_ALARM_DATE 1014
#define IDC_ALARM_TIME 1015
#define IDC_FILE_NAME 1026
#define IDC_DEFAULT_NAME 1029

// Commands of the editor
#define IDM_NEW_NOTE 32701
#define IDM_TOOLS 32702
#define IDM_BACKGROUND_COLOR 32703
#define IDM_SPACE_TOOL 32704
#define IDM_PEN 32705
#define IDM_PEN_COLOR_2 32706
#define IDM_PEN_COLOR_3 32707
#define IDM_PEN_COLOR_4 32708
#define IDM_ERASER 32709
#define IDM_FULL_ERASE 32710
#define IDM_PALETTE_PEN 32711
#define IDM_SET_ALARM 32908
#define IDM_TEXT_MEMO 32911
#define IDM_SEND_EMAIL 32913
