# The viewer of pages, which node makes of web/ when the program is compiled, for whatever system that is.
#   igs_add_viewer(TARGET)
function(igs_find_viewer result)
  set(${result} OFF PARENT_SCOPE)
  # npm writes this file last; the folder is looked into whenever the program is built, also
  # where node is still to come.
  file(GLOB installed CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/web/node_modules/.package-lock.json)
  find_program(IGS_NODE NAMES node nodejs)
  if(NOT IGS_NODE)
    return()
  endif()
  execute_process(COMMAND ${IGS_NODE} -p "process.versions.node.split('.')[0] >= 18"
    OUTPUT_VARIABLE is_new_enough OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(is_new_enough STREQUAL "true" AND installed)
    set(${result} ON PARENT_SCOPE)
  endif()
endfunction()

function(igs_add_viewer target)
  igs_find_viewer(has_viewer)
  if(NOT has_viewer)
    message(STATUS "node 18 or what web/package.json names is missing: this build of the program will write no pages")
    return()
  endif()
  set(web ${PROJECT_SOURCE_DIR}/web)
  set(template ${CMAKE_CURRENT_BINARY_DIR}/page_template.cpp)
  file(GLOB viewer_sources CONFIGURE_DEPENDS ${web}/viewer/*)
  add_custom_command(OUTPUT ${template}
    COMMAND ${IGS_NODE} ${web}/build.mjs ${template}
    DEPENDS ${viewer_sources} ${web}/build.mjs ${web}/bundle.mjs
      ${web}/node_modules/.package-lock.json
    COMMENT "Bundling the viewer of pages" VERBATIM)
  target_sources(${target} PRIVATE ${template})
  set_source_files_properties(${template} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_compile_definitions(${target} PRIVATE IGS_HAS_VIEWER)
endfunction()
