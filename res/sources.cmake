set(ORBIX_RES_HEADERS resources.h)
set(ORBIX_RES_SOURCES accelerators.cpp dialog_main.cpp dialog_pages.cpp dialog_patch.cpp heads.cpp icons.cpp
                      resources.cpp)
