# Run by CPack when the trees of the packages stand: what Debian asks for beyond what an installation has.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH, where that is set
foreach(component ${CPACK_COMPONENTS_ALL})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(doc ${root}/share/doc/${package})
  configure_file(${CPACK_IGS_COPYRIGHT} ${doc}/copyright COPYONLY)
  file(WRITE ${doc}/changelog "igs (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Packaged by the build of igs itself.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  file(GLOB_RECURSE binaries ${root}/bin/* ${root}/lib/*.so.* ${root}/lib/python3/*.so)
  foreach(binary ${binaries})
    file(RPATH_REMOVE FILE ${binary})
  endforeach()
  file(GLOB texts ${doc}/changelog ${root}/share/man/man*/*.[1-9])
  execute_process(COMMAND gzip -9n ${texts} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
