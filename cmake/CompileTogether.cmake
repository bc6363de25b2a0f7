# Sources that are compiled in one go.
#
# Nearly all of the time of a compilation goes into the toolkit's headers, and into the same templates
# for each source. Where CMAKE_UNITY_BUILD is on (the preset release) the sources of one folder are
# therefore compiled together, up to sixteen at once; elsewhere, as for tools that read the sources,
# each one stands by its own includes.

set(MOST_COMPILED_TOGETHER 16)

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
  set(folders "")
  foreach(source IN LISTS sources)
    get_filename_component(name ${source} NAME)
    get_filename_component(folder ${source} DIRECTORY)
    if(name IN_LIST ARG_ALONE)
      continue()
    endif()
    if(ARG_ACROSS_FOLDERS)
      set(folder ${PROJECT_SOURCE_DIR}/all)
    endif()
    list(APPEND folders ${folder})
    list(APPEND sources_of_${folder} ${source})
  endforeach()

  list(REMOVE_DUPLICATES folders)
  foreach(folder IN LISTS folders)
    file(RELATIVE_PATH group ${PROJECT_SOURCE_DIR} ${folder})
    string(REPLACE "/" "_" group ${group})
    # As few groups as can be, and of one size.
    list(LENGTH sources_of_${folder} count)
    math(EXPR groups "(${count} + ${MOST_COMPILED_TOGETHER} - 1) / ${MOST_COMPILED_TOGETHER}")
    set(place 0)
    foreach(source IN LISTS sources_of_${folder})
      math(EXPR number "${place} * ${groups} / ${count}")
      math(EXPR place "${place} + 1")
      set_source_files_properties(${source} TARGET_DIRECTORY ${target}
                                  PROPERTIES UNITY_GROUP ${group}_${number})
    endforeach()
  endforeach()
endfunction()
