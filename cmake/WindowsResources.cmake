# melodario_windows_resources(target DESCRIPTION): the icon, the version and the manifest (large
# screens, long paths) that Windows reads from a program's file.
find_program(ICOTOOL icotool REQUIRED)
enable_language(RC)

# Draws the icon, once for all programs of a folder. @return its path in ICON
function(melodario_windows_icon)
    set(ICON "${CMAKE_CURRENT_BINARY_DIR}/melodario.ico" PARENT_SCOPE)
    get_directory_property(drawn MELODARIO_ICON)
    if(drawn)
        return()
    endif()
    set_directory_properties(PROPERTIES MELODARIO_ICON TRUE)
    set(ICON "${CMAKE_CURRENT_BINARY_DIR}/melodario.ico")
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
    add_custom_command(OUTPUT "${ICON}"
        COMMAND "${ICOTOOL}" --create --output "${ICON}" ${icons} DEPENDS ${icons}
        COMMENT "Making the icon"
        VERBATIM)
endfunction()

function(melodario_windows_resources target description)
    melodario_windows_icon()
    set(folder "${PROJECT_SOURCE_DIR}/src/app/windows")
    set(MANIFEST "${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest")
    configure_file("${folder}/melodario.manifest.in" "${MANIFEST}" @ONLY)
    set(DESCRIPTION "${description}")
    get_target_property(NAME ${target} OUTPUT_NAME)
    if(NOT NAME)
        set(NAME ${target})
    endif()
    set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${folder}/melodario.rc.in" "${resources}" @ONLY)
    set_source_files_properties("${resources}" PROPERTIES OBJECT_DEPENDS "${ICON};${MANIFEST}")
    target_sources(${target} PRIVATE "${resources}")
endfunction()
