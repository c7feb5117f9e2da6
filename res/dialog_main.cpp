#include "res/resources.h"

// The editor's window in dialog units. The left half, 3 to 269, holds name, filter, list and the
// fields of one event from top to bottom; the right half, 271 to 436, the two planes with the
// view settings and the frame's buttons below them. The list is wide enough for its nine columns
// and the scroll bar. The order is the order of the Tab key; a spin follows its edit box.
// Commands that the accelerators have a key for get no access key.

using enum ControlKind;

static constexpr const char* kSourceIds[] = {"0", "1", "2", "3"};
static constexpr const char* kDenominators[] = {"2", "4", "8", "16", "32"};

static constexpr ControlTemplate kControls[] = {
    {list, 4020, "", 3, 28, 266, 142, kTabStop, "Events"},

    {groupBox, kNoId, "Nam&e", 3, 2, 92, 24},
    {edit, 1003, "", 7, 11, 84, 12, kTabStop, "Pattern name"},

    {groupBox, 4044, "View Filter", 97, 2, 172, 24},
    {checkBox, 1009, "", 102, 12, 9, 9, kTabStop, "Show all IDs"},
    {staticText, 1017, "I&D ALL", 113, 12, 26, 9},
    {checkBox, 1010, "", 146, 12, 9, 9, kTabStop, "Show ID 0"},
    {staticText, 1024, "ID&0", 157, 12, 15, 9},
    {checkBox, 1011, "", 177, 12, 9, 9, kTabStop, "Show ID 1"},
    {staticText, 1025, "ID&1", 188, 12, 15, 9},
    {checkBox, 1012, "", 208, 12, 9, 9, kTabStop, "Show ID 2"},
    {staticText, 1026, "ID&2", 219, 12, 15, 9},
    {checkBox, 1013, "", 239, 12, 9, 9, kTabStop, "Show ID 3"},
    {staticText, 1027, "ID&3", 250, 12, 15, 9},

    {groupBox, kNoId, "Time", 3, 171, 178, 25},
    {staticText, kNoId, "&Meas.", 7, 183, 21, 9},
    {edit, 4018, "", 28, 181, 28, 12, kTabStop, "Measure"},
    {spin, 4017, "", 56, 181, 9, 12, 0, "Measure, up and down"},
    {staticText, kNoId, "&Beat", 69, 183, 17, 9},
    {edit, 4019, "", 86, 181, 28, 12, kTabStop, "Beat"},
    {spin, 4021, "", 114, 181, 9, 12, 0, "Beat, up and down"},
    {staticText, kNoId, "Tic&k", 126, 183, 15, 9},
    {edit, 4022, "", 141, 181, 28, 12, kTabStop, "Tick"},
    {spin, 4023, "", 169, 181, 9, 12, 0, "Tick, up and down"},

    {iconButton, 1029, "LOAD", 184, 176, 42, 18, kTabStop, "Load CSV file"},
    {iconButton, 1030, "Save", 227, 176, 42, 18, kTabStop, "Save CSV file"},

    {groupBox, kNoId, "Setting Type", 3, 197, 128, 25},
    {radioButton, 1038, "3D &Position", 7, 208, 55, 10, kTabStop | kGroupStart},
    {radioButton, 1039, "TimeSi&gnature", 64, 208, 64, 10, kTabStop},

    {groupBox, 1036, "TimeSignature Setting", 133, 197, 136, 25},
    {edit, 4025, "", 139, 207, 26, 12, kTabStop, "Beats per measure"},
    {spin, 4026, "", 165, 207, 9, 12, 0, "Beats per measure, up and down"},
    {staticText, 1037, " &/", 177, 209, 9, 9},
    {comboBox, 4024, "", 188, 207, 34, 12, kTabStop, "Note value of a beat", kDenominators},

    {groupBox, 1040, "3D Position Setting", 3, 223, 212, 134},
    {staticText, 1041, "&ID", 8, 235, 11, 9},
    {comboBox, 4016, "", 20, 233, 34, 12, kTabStop, "3D ID", kSourceIds},
    {tab, 4059, "", 6, 248, 206, 106, kTabStop, "Position pages"},

    {pushButton, 4031, "&Add", 218, 229, 51, 15, kTabStop, "Add event"},
    {pushButton, 4032, "&Update", 218, 247, 51, 15, kTabStop, "Update event"},
    {pushButton, 4002, "Delete", 218, 265, 51, 15, kTabStop, "Delete event"},
    {pushButton, 4003, "Undo", 218, 291, 51, 15, kTabStop},
    {pushButton, 4004, "Redo", 218, 309, 51, 15, kTabStop},
    {pushButton, 1034, "Default", 218, 341, 51, 15, kHidden},

    {placeFrame, 1018, "", 271, 3, 165, 153, 0, "Sources from above"},
    {placeFrame, 1002, "", 271, 158, 165, 153, 0, "Sources from behind"},

    {groupBox, kNoId, "Axis Reverse", 271, 313, 60, 26},
    {pushLikeCheck, 1028, "&X", 274, 322, 17, 13, kTabStop, "Reverse X axis"},
    {pushLikeCheck, 1031, "&Y", 292, 322, 17, 13, kTabStop, "Reverse Y axis"},
    {pushLikeCheck, 1032, "&Z", 310, 322, 17, 13, kTabStop, "Reverse Z axis"},
    {groupBox, kNoId, "Index View", 333, 313, 54, 26},
    {pushLikeCheck, 1033, "&No.", 337, 322, 22, 13, kTabStop, "Show dot numbers"},
    {pushLikeCheck, 1035, "&Line", 361, 322, 22, 13, kTabStop, "Show lines"},
    {groupBox, kNoId, "Z&oom(m)", 389, 313, 47, 26},
    {comboBox, 1023, "", 393, 323, 39, 12, kTabStop, "Zoom in metres"},

    {pushButton, 1008, "&Send", 271, 342, 39, 15, kTabStop, "Send position to device"},
    {pushButton, 1007, "Patc&h", 313, 342, 39, 15, kTabStop, "Edit patch parameters"},
    {pushButton, 1, "OK", 355, 342, 39, 15, kTabStop | kDefaultButton},
    {pushButton, 2, "Cancel", 397, 342, 39, 15, kTabStop},
};

constinit const DialogTemplate kMainDialogTemplate{4000, "Orbix", 439, 359, false, true, kControls};
