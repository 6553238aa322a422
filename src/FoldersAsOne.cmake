# With CMAKE_UNITY_BUILD, the sources of a folder are compiled as one, which takes half of the time
# where all is compiled once and not again. So no two files of a folder may give different things the
# same name. The folders named behind the target are let be.
function(forme_compile_folders_as_one target)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    get_filename_component(folder ${source} DIRECTORY)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${folder})
    if(folder IN_LIST ARGN)
      continue()
    endif()
    string(REPLACE "/" "_" folder ${folder})
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${folder}")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  # g++ takes the sources of a unit for headers, in which no type should derive from a private one.
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
endfunction()
