# Settings that every target of the project shares.

function(vellum_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                                           -Wnull-dereference -Wimplicit-fallthrough
                                           # A designated initialiser names what differs from the defaults alone.
                                           -Wno-missing-field-initializers)
  if(VELLUM_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)
  if(VELLUM_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize=vptr)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

# vellum_library(<folder> [TARGET <name>] LINKS <targets...>): the static library of all sources in one folder of
# src/. It is named as the folder unless the build system keeps that word for itself.
function(vellum_library folder)
  cmake_parse_arguments(ARG "" "TARGET" "LINKS" ${ARGN})
  set(library ${folder})
  if(ARG_TARGET)
    set(library ${ARG_TARGET})
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp
       ${PROJECT_SOURCE_DIR}/src/${folder}/*.h ${PROJECT_SOURCE_DIR}/src/${folder}/*.qrc)
  add_library(${library} STATIC ${sources})
  # moc looks at the folder again when a header joins or leaves it, which it would not do by itself.
  set(headers ${sources})
  list(FILTER headers INCLUDE REGEX "\\.h$")
  set(known_headers ${CMAKE_CURRENT_BINARY_DIR}/${library}_headers.txt)
  set(before "")
  if(EXISTS ${known_headers})
    file(READ ${known_headers} before)
  endif()
  if(NOT before STREQUAL "${headers}")
    file(WRITE ${known_headers} "${headers}")
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${library}_autogen/timestamp)
  endif()
  target_include_directories(${library} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${library} PUBLIC ${ARG_LINKS})
  vellum_warnings(${library})
endfunction()
