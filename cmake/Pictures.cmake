# melodario_pictures(target name PREFIX prefix [BASE folder] FILES file.svg... [OTHERS file...])
# Puts pictures, relative to the present folder, into a target's resources; their names there leave
# BASE out. Where Qt has its SVG module they go in as they are. Elsewhere each is drawn at 1, 2, 3
# and 4 times its size and goes in as "x.svg", "x@2x.svg"...: Qt tells a picture's kind by its
# content, so that style sheets, forms and icons find them under the same names.
function(melodario_pictures target name)
    cmake_parse_arguments(PICTURES "" "PREFIX;BASE" "FILES;OTHERS" ${ARGN})
    set(base "${CMAKE_CURRENT_SOURCE_DIR}/${PICTURES_BASE}")
    set(files ${PICTURES_OTHERS})
    if(TARGET Qt6::Svg)
        list(APPEND files ${PICTURES_FILES})
        set(PICTURES_FILES)
    endif()
    foreach(file ${files})
        file(RELATIVE_PATH alias "${base}" "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
        set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "${alias}")
    endforeach()

    foreach(picture ${PICTURES_FILES})
        file(RELATIVE_PATH alias "${base}" "${CMAKE_CURRENT_SOURCE_DIR}/${picture}")
        foreach(scale 1 2 3 4)
            set(bitmap "${alias}")
            if(scale GREATER 1)
                string(REGEX REPLACE "\\.svg$" "@${scale}x.svg" bitmap "${alias}")
            endif()
            set(file "${CMAKE_CURRENT_BINARY_DIR}/drawn/${bitmap}")
            get_filename_component(folder "${file}" DIRECTORY)
            file(MAKE_DIRECTORY "${folder}")
            add_custom_command(OUTPUT "${file}"
                COMMAND melodario-icone "${CMAKE_CURRENT_SOURCE_DIR}/${picture}" ${scale}x "${file}"
                DEPENDS "${picture}"
                COMMENT ""
                VERBATIM)
            set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "${bitmap}")
            list(APPEND files "${file}")
        endforeach()
    endforeach()
    qt_add_resources(${target} ${name} PREFIX "${PICTURES_PREFIX}" FILES ${files})
endfunction()
