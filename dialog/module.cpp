#include "platform/dialog_template.h"
#include "res/resources.h"

namespace {

// The library's resources can be found from its load to its unload.
class Module {
public:
    Module() { AfxInitExtensionModule(OrbixResources()); }
    ~Module() { AfxTermExtensionModule(OrbixResources()); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
};

const Module module;

}  // namespace
