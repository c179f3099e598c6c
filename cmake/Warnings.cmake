# The warnings every target of ours is built with. A warning is an error with the compilers that were
# tried, those of Debian 12 and 13; another one's new warnings must not keep it from building.
add_library(vantrel_warnings INTERFACE)
target_compile_options(
  vantrel_warnings
  INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
string(REGEX MATCH "^[0-9]+" release "${CMAKE_CXX_COMPILER_VERSION}")
if("${CMAKE_CXX_COMPILER_ID} ${release}" MATCHES "^(GNU (12|14)|Clang (14|19))$")
  target_compile_options(vantrel_warnings INTERFACE -Werror)
endif()
target_compile_definitions(
  vantrel_warnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                             QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)
