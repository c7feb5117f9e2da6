#include "res/resources.h"

#include <array>

const ResourceTable& OrbixResources() {
    static const std::array<DialogTemplate, 4> dialogs{kMainDialogTemplate, kSphericalPageTemplate,
                                                       kCartesianPageTemplate, kPatchTemplate};
    static const std::array<AcceleratorTable, 2> accelerators{kEditorAccelerators,
                                                              kPatchAccelerators};
    static const ResourceTable table{dialogs, accelerators, kIcons, kHeadPictures};
    return table;
}
