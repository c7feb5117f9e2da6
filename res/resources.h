#pragma once

#include <span>

#include "platform/dialog_template.h"

/// The library's resources as constant data. Icons, bitmaps, dialogs and accelerator tables are
/// numbered apart: one number may stand for one of each.

/// The number of a control that nobody asks for; any number of controls may have it.
inline constexpr int kNoId = -1;

/// Dialog 4000, the editor.
extern const DialogTemplate kMainDialogTemplate;
/// Dialog 4007, the page with distance, azimuth and elevation.
extern const DialogTemplate kSphericalPageTemplate;
/// Dialog 4008, the page with X, Y and Z.
extern const DialogTemplate kCartesianPageTemplate;
/// Dialog 4100, the patch dialog.
extern const DialogTemplate kPatchTemplate;

/// Accelerator table 1007, the editor's keys.
extern const AcceleratorTable kEditorAccelerators;
/// Accelerator table 4100, the patch dialog's keys.
extern const AcceleratorTable kPatchAccelerators;

/// Row pictures of the event list and the pictures on the editor's buttons, 16 x 16.
extern const std::span<const PictureResource> kIcons;
/// Bitmaps 5000 to 5015, 32 x 32: eight views of the listener's head, each with its mask.
extern const std::span<const PictureResource> kHeadPictures;

/// Everything above as one table, which lives as long as the process.
const ResourceTable& OrbixResources();
