#!/usr/bin/env bash
# threads.sh: looks for races. ThreadSanitizer watches the threads of the printers and of the history in their
# own tests, and vantrel-admin, vantrel-print with its workers and vantrel-console in the tests that start
# them. Those tests are built without it, since it takes the memory that Qt shares with a program it starts for
# that of a fork.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset tsan
cmake --build --preset tsan
ctest --preset tsan

cmake --preset dev
cmake --build --preset dev --target test_admin_program test_print_program test_console_program
export VANTREL_TESTED_PROGRAMS=$PWD/build/tsan/bin
# A program that is found to have a race ends at once, which fails its test.
export TSAN_OPTIONS="suppressions=$PWD/tests/tsan.supp:history_size=4:halt_on_error=1"
export QT_QPA_PLATFORM=offscreen
build/dev/bin/test_admin_program
build/dev/bin/test_print_program
# The sanitizer takes memory of its own, so what a console takes in the long run is not measured here.
measured=(ConsoleEvents.AHundredViewersWhoComeAndGoLeaveNothingBehind
  ConsoleHostile.AThousandSlowClientsKeepNobodyOut
  ConsoleHostile.ATargetOfTooManyParametersTakesNoMemory
  ConsoleHostile.OneConnectionMayAskAsOftenAsItLikes)
build/dev/bin/test_console_program --gtest_filter="-$(IFS=:; echo "${measured[*]}")"
