# igs::igs is the library, igs::shape its component of shapes; igs::igs_static and igs::shape_static are there where both kinds
# were installed.
include(CMakeFindDependencyMacro)
find_dependency(Threads)
include(${CMAKE_CURRENT_LIST_DIR}/igs-targets.cmake)
