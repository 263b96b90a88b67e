# The ways in which this project makes a library, a program and a test.

# Flags that everything of ours is compiled with.
function(tesk_compile_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # A joined source includes the others, so their unnamed namespaces look like a header's.
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    if(TESK_SANITIZERS)
        # Clang also marks the branches, so that the fuzz targets see which of them an input reaches.
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined$<$<CXX_COMPILER_ID:Clang>:,fuzzer-no-link>
            -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()

# tesk_library(NAME SOURCE...): a static library of one folder, included as "folder/Header.h".
function(tesk_library target)
    add_library(${target} STATIC ${ARGN})
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    tesk_compile_options(${target})
endfunction()

# tesk_program(NAME SOURCE...): an executable.
function(tesk_program target)
    add_executable(${target} ${ARGN})
    tesk_compile_options(${target})
endfunction()

# The headers that most tests of windows need, parsed once for all of them: half of their time went
# into that. Qt Test's are left out, which differ from target to target by their definitions.
file(WRITE "${CMAKE_BINARY_DIR}/tesk_test_headers.cpp" "")
add_library(tesk_test_headers STATIC "${CMAKE_BINARY_DIR}/tesk_test_headers.cpp")
tesk_compile_options(tesk_test_headers)
target_link_libraries(tesk_test_headers PRIVATE Qt6::Widgets)
target_precompile_headers(tesk_test_headers PRIVATE
    <QApplication> <QComboBox> <QDir> <QFile> <QJsonDocument> <QLabel> <QLineEdit> <QMessageBox>
    <QPushButton> <QRegularExpression> <QTabWidget> <QTemporaryDir> <QTimer>
    <algorithm> <functional> <map> <memory> <optional> <string> <vector>)

# Sets RESULT to whether one of the libraries needs Qt's widgets, itself or through others.
function(tesk_needs_widgets result)
    set(${result} FALSE PARENT_SCOPE)
    foreach(library IN LISTS ARGN)
        if(library STREQUAL "Qt6::Widgets")
            set(${result} TRUE PARENT_SCOPE)
            return()
        endif()
        if(NOT TARGET ${library} OR library MATCHES "^Qt6::(Core|Gui|Network|Test)$")
            continue()
        endif()
        get_target_property(further ${library} INTERFACE_LINK_LIBRARIES)
        if(further)
            tesk_needs_widgets(isNeeded ${further})
            if(isNeeded)
                set(${result} TRUE PARENT_SCOPE)
                return()
            endif()
        endif()
    endforeach()
endfunction()

# tesk_test(NAME SOURCES source... LINK library... [ENVIRONMENT name=value...]): a Qt Test executable
# that CTest runs without a display. TEST_DATA_DIR names the folder data/ beside it.
function(tesk_test target)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK;ENVIRONMENT" ${ARGN})
    tesk_program(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE ${arg_LINK} Qt6::Test)
    target_compile_definitions(${target} PRIVATE TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}/data")
    tesk_needs_widgets(isOfWindows ${arg_LINK})
    if(isOfWindows)
        target_precompile_headers(${target} REUSE_FROM tesk_test_headers)
    endif()
    add_test(NAME ${target} COMMAND ${target})
    set(sanitizerOptions "")
    if(isOfWindows)
        # The browser engine, which is built without the sanitizers, frees by other sizes than it
        # asked for and leaves memory to the end of its process.
        set(sanitizerOptions "ASAN_OPTIONS=new_delete_type_mismatch=0:detect_leaks=0;")
    endif()
    set_tests_properties(${target} PROPERTIES
        TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTWEBENGINE_DISABLE_SANDBOX=1;LC_ALL=C.UTF-8;${sanitizerOptions}${arg_ENVIRONMENT}")
endfunction()

# tesk_unit_tests(FOLDER): the tests of the code they stand beside, if this build is to have them.
function(tesk_unit_tests folder)
    if(TESK_UNIT_TESTS)
        add_subdirectory(${folder})
    endif()
endfunction()
