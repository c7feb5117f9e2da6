#include "platform/messages.h"
#include "res/resources.h"

// The patch dialog in dialog units: identifier and length above the table of bytes, the selected
// row as text below it. The table is wide enough for offset, 16 bytes, text and the scroll bar.

using enum ControlKind;

static constexpr ControlTemplate kControls[] = {
    {staticText, kNoId, "Identifier", 3, 6, 34, 9},
    {edit, 4101, "", 38, 4, 62, 12, kTabStop, "Identifier"},
    {staticText, kNoId, "Length", 112, 6, 25, 9},
    {edit, 4102, "", 138, 4, 44, 12, kTabStop, "Length in bytes"},
    {staticText, kNoId, "bytes", 185, 6, 22, 9},

    {list, 4103, "", 3, 20, 400, 140, kTabStop, "Bytes"},

    {staticText, 4108, "Row", 3, 166, 44, 9},
    {edit, 4104, "", 48, 164, 301, 12, kTabStop, "Bytes of the selected row in hexadecimal"},
    {pushButton, 4105, "Apply", 353, 163, 50, 14, kTabStop, "Apply what was typed"},

    {pushButton, 4106, "Undo", 3, 183, 50, 14, kTabStop | kDisabled},
    {pushButton, 4107, "Redo", 56, 183, 50, 14, kTabStop | kDisabled},
    {pushButton, 1, "OK", 300, 183, 50, 14, kTabStop | kDefaultButton},
    {pushButton, 2, "Cancel", 353, 183, 50, 14, kTabStop},
};

constinit const DialogTemplate kPatchTemplate{4100, "Patch", 406, 200, false, false, kControls};

static constexpr Accelerator kKeys[] = {{'Z', true, 4106}, {'Y', true, 4107}};

constinit const AcceleratorTable kPatchAccelerators{4100, kKeys};
