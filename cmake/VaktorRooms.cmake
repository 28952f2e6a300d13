# SPDX-License-Identifier: GPL-3.0-or-later
# Rooms: one static library a folder. A room sees the headers of the rooms it links to and of no other, so that an
# include against the order of the floors does not compile. Headers are written with their folder: "engine/zone.h".

# Flags that hold for all our own code.
add_library(vaktor_flags INTERFACE)
target_compile_options(vaktor_flags INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion -Wsign-conversion
  -Wold-style-cast -Wcast-align -Wformat=2 -Wimplicit-fallthrough)
target_compile_definitions(vaktor_flags INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
# What is handed out defends itself where a defect of ours, or of a library's, would write or jump astray.
target_compile_options(vaktor_flags INTERFACE
  $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2> $<$<CONFIG:Release>:-fstack-protector-strong>
  $<$<CONFIG:Release>:-fstack-clash-protection> $<$<CONFIG:Release>:-fcf-protection>)
target_link_options(vaktor_flags INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now> $<$<CONFIG:Release>:-pie>)
if(VAKTOR_SANITIZERS)
  target_compile_options(vaktor_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  target_link_options(vaktor_flags INTERFACE -fsanitize=address,undefined)
endif()
if(VAKTOR_THREADS)
  # It knows no fences, and would be told so at each: scripts/races.supp names what stands behind one.
  target_compile_options(vaktor_flags INTERFACE -fsanitize=thread -fno-omit-frame-pointer
    $<$<CXX_COMPILER_ID:GNU>:-Wno-tsan>)
  target_link_options(vaktor_flags INTERFACE -fsanitize=thread)
endif()
if(VAKTOR_FUZZ)
  target_compile_options(vaktor_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(vaktor_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VAKTOR_COVERAGE)
  target_compile_options(vaktor_flags INTERFACE --coverage)
  target_link_options(vaktor_flags INTERFACE --coverage)
endif()

# vaktor_room(NAME FOLDER SOURCES... ): makes the library vaktor_NAME from files of FOLDER (relative to the top).
# Its headers are reached through a folder of the build tree that holds nothing but this room.
function(vaktor_room name folder)
  set(gate "${CMAKE_BINARY_DIR}/rooms/${name}")
  get_filename_component(parent "${gate}/${folder}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  if(NOT EXISTS "${gate}/${folder}")
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${folder}" "${gate}/${folder}" SYMBOLIC)
  endif()
  if(ARGN)
    add_library(vaktor_${name} STATIC ${ARGN})
    target_include_directories(vaktor_${name} PUBLIC "${gate}")
    target_link_libraries(vaktor_${name} PRIVATE vaktor_flags)
  else()
    add_library(vaktor_${name} INTERFACE)
    target_include_directories(vaktor_${name} INTERFACE "${gate}")
  endif()
endfunction()
