# melodario_windows_resources(target): the icon, the version and the manifest (large screens, long
# paths) that Windows reads from a program's file.
find_program(ICOTOOL icotool REQUIRED)

function(melodario_windows_resources target)
    set(folder "${PROJECT_SOURCE_DIR}/src/app/windows")
    set(icons)
    foreach(size 16 20 24 32 40 48 64 256)
        set(icon "${CMAKE_CURRENT_BINARY_DIR}/melodario-${size}.png")
        add_custom_command(OUTPUT "${icon}"
            COMMAND melodario-icone "${PROJECT_SOURCE_DIR}/src/artwork/melodario.svg" ${size} "${icon}"
            DEPENDS "${PROJECT_SOURCE_DIR}/src/artwork/melodario.svg"
            COMMENT ""
            VERBATIM)
        list(APPEND icons "${icon}")
    endforeach()
    set(ICON "${CMAKE_CURRENT_BINARY_DIR}/melodario.ico")
    add_custom_command(OUTPUT "${ICON}"
        COMMAND "${ICOTOOL}" --create --output "${ICON}" ${icons} DEPENDS ${icons}
        COMMENT "Making the icon"
        VERBATIM)
    set(MANIFEST "${folder}/melodario.manifest")
    configure_file("${folder}/melodario.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/melodario.rc" @ONLY)
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/melodario.rc" PROPERTIES
        OBJECT_DEPENDS "${ICON};${MANIFEST}")
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/melodario.rc")
endfunction()
