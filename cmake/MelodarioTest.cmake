# What most test sources include, compiled once for those without and once for those with widgets:
# a third of what a test takes to compile. The rooms' own sources are compiled without, so that each
# includes what it uses. QTest is not among them: what it declares names the folder of each test.
# ccache keeps precompiled headers, and what is compiled with them, only with these options.
set(MELODARIO_CACHED_HEADERS
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
    "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")

function(melodario_test_headers name)
    cmake_parse_arguments(H "" "" "HEADERS;LINKS" ${ARGN})
    file(GENERATE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp" CONTENT "")
    add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE ${H_LINKS} melodario_flags)
    target_compile_options(${name} PRIVATE ${MELODARIO_CACHED_HEADERS})
    target_precompile_headers(${name} PRIVATE
        <algorithm> <array> <functional> <memory> <optional> <string> <utility> <vector>
        <QDateTime> <QFile> <QHash> <QMap> <QRegularExpression> <QSharedPointer> <QStringList>
        <QTemporaryDir> <QThread> <QVariant> ${H_HEADERS})
endfunction()

melodario_test_headers(test_headers LINKS Qt6::Core)
melodario_test_headers(test_headers_gui LINKS Qt6::Widgets
    HEADERS <QAction> <QApplication> <QLabel> <QLineEdit> <QListView> <QPushButton> <QTimer>)

function(melodario_use_test_headers target headers)
    target_compile_options(${target} PRIVATE ${MELODARIO_CACHED_HEADERS})
    target_precompile_headers(${target} REUSE_FROM ${headers})
endfunction()

# melodario_fixtures(name SOURCES file... LINKS target...)
# What the tests of a folder share, compiled once for all of them: moc's output for its headers takes
# as long as a test.
function(melodario_fixtures name)
    cmake_parse_arguments(F "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${F_SOURCES})
    target_link_libraries(${name} PUBLIC ${F_LINKS} Qt6::Test PRIVATE melodario_flags)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE MELODARIO_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    melodario_use_test_headers(${name} test_headers_gui)
endfunction()

# melodario_test(name SOURCES file... LINKS target... [FIXTURES name] [GUI] [TIMEOUT seconds])
# One executable per test source. Every test runs on the offscreen platform with a screen wide
# enough for the main form, one scale, one font resolution and one time zone. FIXTURES are those of
# the same folder. What the toolkit's pickers remember in the user's configuration (the last folder)
# would reach the next test: the folder of that configuration stands where none can be made.
set(MELODARIO_TEST_CONFIG "XDG_CONFIG_HOME=${CMAKE_CURRENT_LIST_FILE}/none")
set(MELODARIO_TEST_SCREEN "${PROJECT_SOURCE_DIR}/tests/support/1366.json")

function(melodario_test name)
    cmake_parse_arguments(T "GUI" "TIMEOUT;FIXTURES" "SOURCES;LINKS;DEFINITIONS" ${ARGN})
    if(NOT T_SOURCES)
        set(T_SOURCES ${name}.cpp)
    endif()
    add_executable(${name} ${T_SOURCES})
    target_link_libraries(${name} PRIVATE ${T_LINKS} Qt6::Test melodario_flags)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        MELODARIO_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ${T_DEFINITIONS})
    if(T_FIXTURES)
        target_link_libraries(${name} PRIVATE ${T_FIXTURES})
    endif()
    if(T_FIXTURES OR T_LINKS MATCHES "controls|mainform|startup|viewer|todas_as_telas")
        melodario_use_test_headers(${name} test_headers_gui)
    elseif(NOT T_LINKS MATCHES "artwork|pages|Qt6::")
        melodario_use_test_headers(${name} test_headers)
    endif()
    if(WIN32)
        # Wine loses what a console program prints into a pipe, and keeps all of QT_* from it.
        set(platform)
        if(T_GUI)
            set(platform -platform "offscreen:configfile=${MELODARIO_TEST_SCREEN}")
        endif()
        add_test(NAME ${name} COMMAND ${name} ${platform} -o ${name}.log,txt)
    else()
        add_test(NAME ${name} COMMAND ${name})
    endif()
    set(env "QT_QPA_PLATFORM=offscreen:configfile=${MELODARIO_TEST_SCREEN}" LC_ALL=C.UTF-8 TZ=UTC
            QT_SCALE_FACTOR=1 QT_FONT_DPI=96 "${MELODARIO_TEST_CONFIG}")
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${env}")
    if(T_GUI)
        set_tests_properties(${name} PROPERTIES LABELS gui)
    endif()
    if(T_TIMEOUT)
        # What may take long begins first, so that nothing runs alone at the end.
        set_tests_properties(${name} PROPERTIES TIMEOUT ${T_TIMEOUT} COST ${T_TIMEOUT})
    endif()
endfunction()

# melodario_test_at_200(name screen): the test once more, as name_200, at 200 % on a screen of that
# many pixels across (tests/support/<screen>.json).
function(melodario_test_at_200 name screen)
    add_test(NAME ${name}_200 COMMAND ${name})
    set(platform "offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/support/${screen}.json")
    set_tests_properties(${name}_200 PROPERTIES LABELS gui ENVIRONMENT
        "QT_QPA_PLATFORM=${platform};LC_ALL=C.UTF-8;TZ=UTC;QT_SCALE_FACTOR=2;QT_FONT_DPI=96;${MELODARIO_TEST_CONFIG}")
endfunction()
