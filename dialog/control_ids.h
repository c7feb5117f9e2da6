#pragma once

/// Numbers of the editor's controls and commands, as in its template. The position pages have
/// numbers of their own, and some of them stand here too: a control is known by its number and
/// its parent.
enum ControlId : int {
    kBtnOk = 1,
    kBtnCancel = 2,

    kEditName = 1003,
    kBtnCsvLoad = 1029,
    kBtnCsvSave = 1030,

    kChkIdAll = 1009,
    kChkId0 = 1010,
    kChkId1 = 1011,
    kChkId2 = 1012,
    kChkId3 = 1013,
    kLabelId0 = 1024,
    kLabelId3 = 1027,

    kListEvents = 4020,

    kEditMeasure = 4018,
    kSpinMeasure = 4017,
    kEditBeat = 4019,
    kSpinBeat = 4021,
    kEditTick = 4022,
    kSpinTick = 4023,
    kRadioPosition = 1038,
    kRadioTimeSig = 1039,
    kEditNumerator = 4025,
    kFramePosition = 1040,
    kLabelId = 1041,
    kComboId = 4016,
    kTabPages = 4059,

    kBtnAdd = 4031,
    kBtnUpdate = 4032,
    kBtnDelete = 4002,
    kBtnUndo = 4003,
    kBtnRedo = 4004,

    kBtnSend = 1008,
    kBtnPatch = 1007,

    kPlaneAbove = 1018,
    kPlaneBehind = 1002,
    kChkXReverse = 1028,
    kChkYReverse = 1031,
    kChkZReverse = 1032,
    kChkIndexView = 1033,
    kChkIndexLine = 1035,
    kComboZoom = 1023,
};

/// Commands of the accelerators.
enum CommandId : int {
    kCommandOpen = 57601,
    kCommandSave = 57603,
    kCommandDelete = 57635,
    kCommandUndo = 57643,
    kCommandRedo = 57644,
};

/// Numbers of the editor's resources.
enum ResourceId : unsigned {
    kEditorDialog = 4000,
    kEditorKeys = 1007,
    kIconSave = 1007,
    kIconLoad = 1008,
};
