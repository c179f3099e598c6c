# The warnings every target of ours is built with; a warning is an error.
add_library(vantrel_warnings INTERFACE)
target_compile_options(
  vantrel_warnings
  INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
            -Werror)
target_compile_definitions(
  vantrel_warnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                             QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)
