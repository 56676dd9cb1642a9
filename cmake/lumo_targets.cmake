# Helpers that turn the source folders into targets. Sources are globbed, so a
# new file pair needs no edit here.

function(lumo_glob out dir)
  file(GLOB_RECURSE srcs CONFIGURE_DEPENDS
       ${CMAKE_SOURCE_DIR}/${dir}/*.cpp ${CMAKE_SOURCE_DIR}/${dir}/*.c)
  set(${out} ${srcs} PARENT_SCOPE)
endfunction()

# lumo_subsystem(target dir [EXCLUDE files]): an object library of one folder,
# appended to LUMO_LAYERS in dependency order.
function(lumo_subsystem target dir)
  cmake_parse_arguments(ARG "" "" "EXCLUDE" ${ARGN})
  lumo_glob(srcs ${dir})
  foreach(x IN LISTS ARG_EXCLUDE)
    list(REMOVE_ITEM srcs ${CMAKE_SOURCE_DIR}/${x})
  endforeach()
  if(srcs)
    add_library(${target} OBJECT ${srcs})
    target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR})
    set(LUMO_LAYERS ${LUMO_LAYERS} ${target} PARENT_SCOPE)
  else()
    add_library(${target} INTERFACE)
  endif()
endfunction()

function(lumo_host_extras target)
  find_package(PNG QUIET)
  if(PNG_FOUND)
    target_link_libraries(${target} PRIVATE PNG::PNG)
    target_compile_definitions(${target} PRIVATE LUMO_HAVE_PNG=1)
  endif()
endfunction()

function(lumo_cli_extras target)
  find_library(READLINE_LIB readline)
  if(READLINE_LIB)
    target_link_libraries(${target} PRIVATE ${READLINE_LIB})
    target_compile_definitions(${target} PRIVATE LUMO_HAVE_READLINE=1)
  endif()
endfunction()
