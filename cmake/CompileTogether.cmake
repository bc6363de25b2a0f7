# Sources that are compiled in one go.
#
# Nearly all of the time of a compilation goes into the toolkit's headers. Where CMAKE_UNITY_BUILD is
# on (the preset release) the sources of one folder are therefore compiled together, up to eight at
# once; elsewhere, as for tools that read the sources, each one stands by its own includes.

# compile_together(TARGET [ACROSS_FOLDERS] [ALONE SOURCE...])
#   TARGET          all its sources so far are put together by their folders
#   ACROSS_FOLDERS  sources of different folders are put together too
#   ALONE           names (without folder) of those that are still compiled by themselves: sources
#                   that use one name for different things
function(compile_together target)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "ACROSS_FOLDERS" "" "ALONE")
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  list(SORT sources)
  set(folder_before "")
  foreach(source IN LISTS sources)
    get_filename_component(name ${source} NAME)
    get_filename_component(folder ${source} DIRECTORY)
    if(name IN_LIST ARG_ALONE)
      continue()
    endif()
    if(ARG_ACROSS_FOLDERS)
      set(folder ${PROJECT_SOURCE_DIR}/all)
    endif()
    if(NOT folder STREQUAL folder_before)
      set(folder_before ${folder})
      set(count 0)
    endif()
    math(EXPR batch "${count} / 8")
    math(EXPR count "${count} + 1")
    file(RELATIVE_PATH group ${PROJECT_SOURCE_DIR} ${folder})
    string(REPLACE "/" "_" group "${group}_${batch}")
    set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${group})
  endforeach()
endfunction()
