# Where programs run under an emulator only: build/emulated has a script for each, of its name, for tests that call it as if it
# ran by itself.
set(igs_programs ${PROJECT_BINARY_DIR}/emulated)
list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " igs_emulator)

function(igs_emulate_programs_of directory)
  get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
      file(GENERATE OUTPUT ${igs_programs}/$<TARGET_FILE_NAME:${target}>
        CONTENT "#!/bin/sh\nexec ${igs_emulator} $<TARGET_FILE:${target}> \"$@\"\n"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    endif()
  endforeach()
  get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  foreach(subdirectory ${subdirectories})
    igs_emulate_programs_of(${subdirectory})
  endforeach()
endfunction()
cmake_language(DEFER CALL igs_emulate_programs_of ${PROJECT_SOURCE_DIR})  # when there are all of them
