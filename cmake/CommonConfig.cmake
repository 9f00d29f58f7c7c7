# What every target of the project shares: the standard, the warnings, the strict Qt macros,
# the sanitizers of the asan preset, and ccache where it is installed.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(varek_common INTERFACE)
target_compile_features(varek_common INTERFACE cxx_std_20)
# GCC 12 takes a short text assigned to a string for an overlapping copy, hence the one exception.
target_compile_options(varek_common INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-restrict)
target_compile_definitions(
  varek_common
  INTERFACE QT_NO_CAST_FROM_ASCII
            QT_NO_CAST_TO_ASCII
            QT_NO_CONTEXTLESS_CONNECT
            QT_NO_KEYWORDS)
if(VAREK_WERROR)
  target_compile_options(varek_common INTERFACE -Werror)
endif()
if(VAREK_SANITIZE)
  target_compile_options(varek_common INTERFACE -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(varek_common INTERFACE -fsanitize=address,undefined)
endif()

# A module: the library of the present folder of src/, named for it (src/views/kit is
# varek_views_kit). Folders link downwards only: what is above in src/CMakeLists.txt.
#
# varek_module(SOURCES <files> [PUBLIC <targets>] [PRIVATE <targets>])
function(varek_module)
  cmake_parse_arguments(MODULE "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
  string(REPLACE "/" "_" name varek_${folder})
  add_library(${name} STATIC ${MODULE_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC varek_common ${MODULE_PUBLIC} PRIVATE ${MODULE_PRIVATE})
endfunction()
