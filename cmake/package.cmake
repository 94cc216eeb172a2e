# Debian packages, by `cpack -G DEB` (scripts/package): libigs0.1, libigs-dev, igs and python3-igs, of a build with shared library.
set(igs_soname_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_PACKAGE_CONTACT "igs developers <igs@example.invalid>")
set(CPACK_PACKAGE_VENDOR "igs developers")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # it would stand before each package's own
set(CPACK_PACKAGE_DESCRIPTION "\
IGES (Initial Graphics Exchange Specification) is the 80-column exchange
format between CAD systems. igs reads such files in whatever state they are,
names each deviation from version 5.3 of the standard, repairs what can be
repaired and writes conforming files.")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})  # where the program's libigs is
set(CPACK_DEBIAN_IGS_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/finish.cmake)
set(CPACK_IGS_COPYRIGHT ${PROJECT_SOURCE_DIR}/packaging/debian/copyright)

# igs_debian_package(COMPONENT PACKAGE SECTION SYNOPSIS [COMPONENT-IT-DEPENDS-ON])
macro(igs_debian_package component package section synopsis)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${synopsis}\n${CPACK_PACKAGE_DESCRIPTION}")
  set(CPACK_COMPONENT_${upper}_DEPENDS ${ARGN})
endmacro()
igs_debian_package(igs_runtime libigs${igs_soname_version} libs "library for IGES files")
igs_debian_package(igs_development libigs-dev libdevel "library for IGES files, development files" igs_runtime)
if(IGS_BUILD_TOOL)
  igs_debian_package(igs_tool igs utils "read, check and repair IGES files" igs_runtime)
endif()
if(IGS_BUILD_PYTHON)
  igs_debian_package(igs_python python3-igs python "read, check and repair IGES files in Python" igs_runtime)
  # The module is for this version of Python.
  math(EXPR igs_next_python "${Python_VERSION_MINOR} + 1")
  set(CPACK_DEBIAN_IGS_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.${Python_VERSION_MINOR}~), python3 (<< 3.${igs_next_python}), python3-numpy")
  set(CPACK_DEBIAN_IGS_PYTHON_PACKAGE_SUGGESTS python3-pandas)
  set(CPACK_DEBIAN_IGS_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/packaging/debian/python/postinst ${PROJECT_SOURCE_DIR}/packaging/debian/python/prerm)
endif()
include(CPack)
