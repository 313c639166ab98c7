# The player is a library of its own, loaded at the first play: it costs nothing at start-up, and
# the program runs where Qt Multimedia is missing. Without Qt Multimedia at build time it is left
# out, and the program says so when something is to be played.
set(PLM_PLAYER_FOLDER lib/pellmore/plugins)
target_compile_definitions(plm_forms PRIVATE PLM_PLAYER_FOLDER="../${PLM_PLAYER_FOLDER}")

find_package(Qt6 6.4 QUIET COMPONENTS Multimedia)
if(TARGET Qt6::Multimedia)
    set_target_properties(plm_core PROPERTIES POSITION_INDEPENDENT_CODE ON)
    add_library(pellmore-player MODULE app/dialogs/player/qt_media_player.cpp
                app/dialogs/player/qt_sound_system.cpp)
    set_target_properties(pellmore-player PROPERTIES AUTOMOC ON CXX_VISIBILITY_PRESET hidden
                          LIBRARY_OUTPUT_DIRECTORY $<TARGET_FILE_DIR:pellmore>)
    target_link_libraries(pellmore-player PRIVATE plm_core Qt6::Multimedia plm_warnings)
    add_dependencies(plm_forms pellmore-player)
else()
    message(STATUS "Qt Multimedia not found: the program is built without its player")
endif()
