#include "platform/messages.h"
#include "res/resources.h"

static constexpr Accelerator kKeys[] = {
    {VK_DELETE, false, 57635}, {'Z', true, 57643}, {'Y', true, 57644},
    {'O', true, 57601},        {'S', true, 57603},
};

constinit const AcceleratorTable kEditorAccelerators{1007, kKeys};
