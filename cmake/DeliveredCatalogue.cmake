# The catalogue that a first start finds. It is made in a place of its own whenever the data change
# and copied beside the program only while there is none: a catalogue in use is never touched.
set(MELODARIO_DATA "${PROJECT_SOURCE_DIR}/data")
set(MELODARIO_DELIVERED "${PROJECT_BINARY_DIR}/delivered/Melodario.mdb")
set(MELODARIO_BESIDE_PROGRAM "${PROJECT_BINARY_DIR}/bin/Melodario.mdb")
file(GLOB MELODARIO_SEEDS CONFIGURE_DEPENDS
    "${MELODARIO_DATA}/*.sql" "${MELODARIO_DATA}/themes.txt" "${MELODARIO_DATA}/songs/*.txt")

add_custom_command(
    OUTPUT "${MELODARIO_DELIVERED}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/delivered"
    COMMAND "${CMAKE_COMMAND}" -E rm -f "${MELODARIO_DELIVERED}"
    COMMAND melodario-cria --dados "${MELODARIO_DATA}" "${MELODARIO_DELIVERED}"
    DEPENDS melodario-cria ${MELODARIO_SEEDS}
    COMMENT "Making the delivered catalogue"
    VERBATIM)

# Runs at every build, so that a program folder without a catalogue gets one again.
add_custom_target(delivered_catalogue ALL
    COMMAND "${CMAKE_COMMAND}" "-DFROM=${MELODARIO_DELIVERED}" "-DTO=${MELODARIO_BESIDE_PROGRAM}"
            -P "${PROJECT_SOURCE_DIR}/cmake/DeliverOnce.cmake"
    COMMENT "Delivering the catalogue unless one is there"
    DEPENDS "${MELODARIO_DELIVERED}"
    VERBATIM)
