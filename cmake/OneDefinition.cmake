# SPDX-License-Identifier: GPL-3.0-or-later
# Two files that define records of one name differently make a program that no compiler and no linker refuses, and
# that writes past the shorter of the two. Only link-time optimisation compares the records of all files: with
# DORVANE_ODR every file is compiled for it, and the target one_definition joins the objects of all libraries and
# programs, as one file from which no code is made. Programs that are never linked together are compared, too.

# dorvane_objects(FOLDER VARIABLE): appends the objects of all targets in a folder and below it.
function(dorvane_objects folder variable)
  set(objects ${${variable}})
  get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    if(type MATCHES "^(STATIC|SHARED|MODULE|OBJECT)_LIBRARY$|^EXECUTABLE$")
      list(APPEND objects $<TARGET_OBJECTS:${target}>)
    endif()
  endforeach()
  get_property(folders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
  foreach(inner ${folders})
    dorvane_objects("${inner}" objects)
  endforeach()
  set(${variable} ${objects} PARENT_SCOPE)
endfunction()

set(objects)
dorvane_objects("${PROJECT_SOURCE_DIR}" objects)
# Several programs have a main, and some files belong to two libraries.
add_custom_command(OUTPUT one_definition.o
  COMMAND ${CMAKE_CXX_COMPILER} -O0 -flto -r -flinker-output=rel -Wodr -Werror=odr -Wl,-z,muldefs
          -o one_definition.o ${objects}
  DEPENDS ${objects} COMMAND_EXPAND_LISTS VERBATIM)
add_custom_target(one_definition DEPENDS one_definition.o)
