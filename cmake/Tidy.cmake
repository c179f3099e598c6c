# One command per wish: `format` rewrites; `check` and `tidy` only look.
file(GLOB_RECURSE VANTREL_OWN_FILES CONFIGURE_DEPENDS src/*.h src/*.cpp tests/*.h tests/*.cpp
     bench/*.h bench/*.cpp fuzz/*.h fuzz/*.cpp)
# The release whose judgement scripts/check.sh takes.
find_program(CLANG_FORMAT clang-format-14)
find_program(RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-14)
if(CLANG_FORMAT)
  add_custom_target(format COMMAND "${CLANG_FORMAT}" -i ${VANTREL_OWN_FILES} VERBATIM)
endif()
add_custom_target(check COMMAND "${CMAKE_SOURCE_DIR}/scripts/check.sh" VERBATIM)
if(RUN_CLANG_TIDY)
  add_custom_target(tidy COMMAND "${RUN_CLANG_TIDY}" -quiet -p "${CMAKE_BINARY_DIR}"
                                 "${CMAKE_SOURCE_DIR}/(src|tests|bench|fuzz)/.*\\.cpp" VERBATIM)
endif()
