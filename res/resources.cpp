#include "res/resources.h"

#include <array>

const ResourceTable& OrbixResources() {
    static const std::array<DialogTemplate, 3> dialogs{kMainDialogTemplate, kSphericalPageTemplate,
                                                       kCartesianPageTemplate};
    static const std::array<AcceleratorTable, 1> accelerators{kEditorAccelerators};
    static const ResourceTable table{dialogs, accelerators, kIcons, kHeadPictures};
    return table;
}
