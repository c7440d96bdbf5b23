# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of ours has in common: language level, warnings, sanitizers, where results go.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(REELSMITH_SANITIZE "" CACHE STRING "Sanitizers for our targets, as given to -fsanitize= (empty: none)")

add_library(reelsmith_options INTERFACE)
target_compile_options(reelsmith_options INTERFACE -Wall -Wextra -Wshadow -Wconversion $<$<CXX_COMPILER_ID:GNU>:-Werror>)
target_include_directories(reelsmith_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_definitions(reelsmith_options INTERFACE REELSMITH_VERSION="${PROJECT_VERSION}")
if(REELSMITH_SANITIZE)
    # GCC loses sight of what is initialized among the checks that the sanitizers put in.
    target_compile_options(reelsmith_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
        -fsanitize=${REELSMITH_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(reelsmith_options INTERFACE -fsanitize=${REELSMITH_SANITIZE})
endif()

# One precompiled header for everything that includes Qt: its headers cost more than our code.
function(reelsmith_precompiled_headers)
    file(WRITE "${CMAKE_BINARY_DIR}/precompiled.cpp" "")
    add_library(precompiled STATIC "${CMAKE_BINARY_DIR}/precompiled.cpp")
    target_link_libraries(precompiled PUBLIC reelsmith_options Qt6::Core)
    target_precompile_headers(precompiled PRIVATE
        <chrono> <functional> <memory> <optional> <utility> <vector>
        <QAbstractListModel> <QCoreApplication> <QObject> <QPointer> <QString> <QTimer> <QUrl> <QVariant>)
endfunction()

# reelsmith_library(NAME SOURCES… [LINKS targets…] [QT]): one static library, its links public. QT: its headers
# declare classes with Q_OBJECT or Q_GADGET, and its sources take Qt's headers precompiled.
function(reelsmith_library name)
    cmake_parse_arguments(LIBRARY "QT" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${LIBRARY_SOURCES})
    target_link_libraries(${name} PUBLIC reelsmith_options ${LIBRARY_LINKS})
    if(LIBRARY_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        qt_extract_metatypes(${name}) # so that the QML tools know its classes
        target_precompile_headers(${name} REUSE_FROM precompiled)
    endif()
endfunction()
