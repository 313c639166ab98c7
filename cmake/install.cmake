# "cmake --install": the programs and what a desktop wants of them, in the usual places.
include(GNUInstallDirs)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)

foreach(program pellmore pellmore-cli)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()
if(TARGET pellmore-player)
    install(TARGETS pellmore-player LIBRARY DESTINATION ${PLM_PLAYER_FOLDER})
endif()

# Found beside the program in a build folder, and as ../share/pellmore/plm.txt when installed.
configure_file(plm.txt ${PROJECT_BINARY_DIR}/plm.txt COPYONLY)
install(FILES plm.txt DESTINATION ${CMAKE_INSTALL_DATADIR}/pellmore)

install(FILES ${packaging}/pellmore.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/org.pellmore.Pellmore.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
set(icon_folder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES app/shared/icons/pellmore.svg DESTINATION ${icon_folder}/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES ${packaging}/icons/pellmore-${size}.png RENAME pellmore.png
            DESTINATION ${icon_folder}/${size}x${size}/apps)
endforeach()

function(install_compressed source name destination)
    set(compressed ${PROJECT_BINARY_DIR}/${name}.gz)
    add_custom_command(OUTPUT ${compressed} DEPENDS ${source}
                       COMMAND gzip -9nc ${source} > ${compressed} VERBATIM)
    add_custom_target(compressed-${name} ALL DEPENDS ${compressed})
    add_dependencies(pellmore compressed-${name})
    install(FILES ${compressed} DESTINATION ${destination})
endfunction()
file(GLOB man_pages CONFIGURE_DEPENDS ${packaging}/*.1)
foreach(page ${man_pages})
    get_filename_component(name ${page} NAME)
    install_compressed(${page} ${name} ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

# Completion of the command line in bash and zsh.
install(FILES ${packaging}/cli/pellmore-cli.bash RENAME pellmore-cli
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${packaging}/cli/_pellmore-cli
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
