set(ORBIX_DIALOG_HEADERS
    control_ids.h
    event_list_ctrl.h
    manager.h
    orbix_main_dlg.h
    pattern_name.h
)
# module.cpp holds nothing but an object whose construction registers the resources, so no symbol
# draws it in: link the objects, or the archive as a whole.
set(ORBIX_DIALOG_SOURCES
    event_list_ctrl.cpp
    manager.cpp
    manager_commands.cpp
    module.cpp
    orbix_main_dlg.cpp
    orbix_main_dlg_device.cpp
    orbix_main_dlg_editing.cpp
    orbix_main_dlg_files.cpp
    orbix_main_dlg_graph.cpp
    orbix_main_dlg_list.cpp
    orbix_main_dlg_start.cpp
    pattern_name.cpp
)
