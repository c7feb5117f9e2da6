#include "res/resources.h"

// The two position pages in dialog units, borderless. Each row has its caption, its ruler, the
// text of its value, and the slider between its two buttons; the order is that of the Tab key. A
// spherical row's caption stands before the slider, which its access key is for.

using enum ControlKind;

static constexpr ControlTemplate kSphericalControls[] = {
    {customStatic, 4056, "", 46, 1, 139, 10, 0, "Distance scale"},
    {edit, 4026, "", 3, 11, 33, 12, kTabStop | kReadOnly, "Distance in metres"},
    {pushButton, 4052, "<", 40, 11, 10, 12, kTabStop, "Distance down"},
    {staticText, 4013, "Distan&ce(m)", 3, 2, 39, 8},
    {slider, 4027, "", 50, 14, 130, 10, kTabStop, "Distance"},
    {pushButton, 4053, ">", 184, 11, 10, 12, kTabStop, "Distance up"},

    {customStatic, 4057, "", 46, 24, 139, 10, 0, "Azimuth scale"},
    {edit, 4024, "", 3, 35, 33, 12, kTabStop | kReadOnly, "Azimuth in degrees"},
    {pushButton, 4054, "<", 40, 35, 10, 12, kTabStop, "Azimuth down"},
    {staticText, 4014, "Azimu&th", 3, 25, 26, 8},
    {slider, 4035, "", 50, 37, 130, 10, kTabStop, "Azimuth"},
    {pushButton, 4055, ">", 184, 35, 10, 12, kTabStop, "Azimuth up"},

    {customStatic, 4058, "", 46, 48, 139, 10, 0, "Elevation scale"},
    {edit, 4025, "", 3, 59, 33, 12, kTabStop | kReadOnly, "Elevation in degrees"},
    {pushButton, 4050, "<", 40, 59, 10, 12, kTabStop, "Elevation down"},
    {staticText, 4015, "Ele&vation", 3, 49, 30, 8},
    {slider, 4036, "", 50, 60, 130, 10, kTabStop, "Elevation"},
    {pushButton, 4051, ">", 184, 59, 10, 12, kTabStop, "Elevation up"},
};

constinit const DialogTemplate kSphericalPageTemplate{4007,  "Spherical",       198, 78, true,
                                                      false, kSphericalControls};

static constexpr ControlTemplate kCartesianControls[] = {
    {staticText, 4013, "X(m)", 3, 2, 17, 8},
    {customStatic, 4061, "", 46, 1, 139, 10, 0, "X scale"},
    {edit, 4060, "", 3, 11, 33, 12, kTabStop | kReadOnly, "X in metres"},
    {pushButton, 4062, "<", 40, 11, 10, 12, kTabStop, "X down"},
    {slider, 4063, "", 50, 14, 130, 10, kTabStop, "X"},
    {pushButton, 4064, ">", 184, 11, 10, 12, kTabStop, "X up"},

    {staticText, 4076, "Y(m)", 3, 25, 17, 8},
    {customStatic, 4067, "", 46, 24, 139, 10, 0, "Y scale"},
    {edit, 4065, "", 3, 35, 33, 12, kTabStop | kReadOnly, "Y in metres"},
    {pushButton, 4066, "<", 40, 35, 10, 12, kTabStop, "Y down"},
    {slider, 4068, "", 50, 37, 130, 10, kTabStop, "Y"},
    {pushButton, 4069, ">", 184, 35, 10, 12, kTabStop, "Y up"},

    {staticText, 4075, "Z(m)", 3, 49, 17, 8},
    {customStatic, 4072, "", 45, 48, 139, 10, 0, "Z scale"},
    {edit, 4070, "", 3, 59, 33, 12, kTabStop | kReadOnly, "Z in metres"},
    {pushButton, 4071, "<", 40, 59, 10, 12, kTabStop, "Z down"},
    {slider, 4073, "", 50, 60, 130, 10, kTabStop, "Z"},
    {pushButton, 4074, ">", 184, 59, 10, 12, kTabStop, "Z up"},

    // Dim until a slider has moved.
    {pushButton, 4077, "Se&t", 173, 74, 22, 10, kTabStop | kDisabled, "Set X, Y and Z"},
};

constinit const DialogTemplate kCartesianPageTemplate{4008,  "Cartesianal",     197, 86, true,
                                                      false, kCartesianControls};
