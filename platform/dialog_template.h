#pragma once

#include <span>

#include "platform/types.h"
#include "sequence/api.h"

/// Resources as data: what dialogs, accelerators and pictures look like, found by number.

enum class ControlKind {
    pushButton,
    iconButton,     ///< A push button that shows an icon above or beside its caption.
    checkBox,       ///< Not automatic: its mark changes only by program.
    autoCheckBox,   ///< A click toggles it.
    pushLikeCheck,  ///< Automatic check box that looks like a button that stays down.
    radioButton,    ///< Automatic within its group.
    groupBox,
    staticText,
    placeFrame,    ///< Invisible; only gives a place. Never takes the mouse.
    customStatic,  ///< A static whose owner paints it on WM_PAINT.
    edit,
    comboBox,  ///< Drop-down list, no typing.
    list,      ///< Report view.
    slider,
    spin,  ///< Takes the control before it as its buddy and writes its number into it.
    tab,
};

/// Flags of a control.
inline constexpr unsigned kDisabled = 0x01;
inline constexpr unsigned kHidden = 0x02;
inline constexpr unsigned kTabStop = 0x04;
inline constexpr unsigned kGroupStart = 0x08;  ///< First of a radio group.
inline constexpr unsigned kDefaultButton = 0x10;
inline constexpr unsigned kReadOnly = 0x20;

/// One control: place in dialog units. Order in the template is the tab order. An "&" in a caption
/// makes the letter behind it an access key, pressed with Alt: of the button, or, in a label or a
/// frame, of the control that follows. The label of a check box without a caption follows its box.
struct ControlTemplate {
    ControlKind kind;
    int id;
    const char* caption;
    short x;
    short y;
    short width;
    short height;
    unsigned flags = 0;
    /// What a screen reader says when the caption does not say it; null takes the caption.
    const char* accessibleName = nullptr;
    /// Rows of a combo box.
    std::span<const char* const> items = {};
};

struct DialogTemplate {
    UINT id;
    const char* caption;
    short width;
    short height;
    bool child;         ///< Borderless child dialog instead of a window of its own.
    bool acceptsFiles;  ///< Files may be dropped on it.
    std::span<const ControlTemplate> controls;
};

/// A key that stands for a command.
struct Accelerator {
    int key;  ///< VK_ number.
    bool control;
    UINT command;
};

struct AcceleratorTable {
    UINT id;
    std::span<const Accelerator> keys;
};
using HACCEL = const AcceleratorTable*;

/// A picture as SVG text, drawn at `size` x `size` logical pixels; sharp at every pixel ratio.
struct PictureResource {
    UINT id;
    int size;
    const char* svg;
};

/// All resources of one library.
struct ResourceTable {
    std::span<const DialogTemplate> dialogs;
    std::span<const AcceleratorTable> accelerators;
    std::span<const PictureResource> icons;
    std::span<const PictureResource> bitmaps;
};

/// Makes the resources findable; the table must outlive the library. Called when a library loads.
ORBIX_API void AfxInitExtensionModule(const ResourceTable& resources);
/// Takes them away again.
ORBIX_API void AfxTermExtensionModule(const ResourceTable& resources);

/// Null when no resource has the number.
const DialogTemplate* FindDialogTemplate(UINT id);
const PictureResource* FindIcon(UINT id);
const PictureResource* FindBitmap(UINT id);
HACCEL LoadAccelerators(UINT id);

/// Dialog units to pixels, at the fixed base of 6 x 13 pixels. Edges are mapped one by one, so
/// that controls that touch in the template touch on the screen.
RECT MapDialogRect(short x, short y, short width, short height);
