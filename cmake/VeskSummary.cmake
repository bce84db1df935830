# What this build was configured to be, printed last.

function(vesk_say label value)
  string(LENGTH "${label}" length)
  math(EXPR spaces "20 - ${length}")
  string(REPEAT " " ${spaces} padding)
  message(STATUS "  ${label}${padding}${value}")
endfunction()

message(STATUS "Vesk HDR ${PROJECT_VERSION}")
vesk_say("Build type" "${CMAKE_BUILD_TYPE}")
vesk_say("Compiler" "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
vesk_say("Qt" "${Qt6Core_VERSION}")
vesk_say("Warnings are errors" "${VESK_WERROR}")
vesk_say("Sanitizers" "${VESK_SANITIZE}")
vesk_say("Tests" "${VESK_BUILD_TESTS}")
vesk_say("Benchmarks" "${VESK_BUILD_BENCH}")
vesk_say("Fuzzers" "${VESK_BUILD_FUZZERS}")
vesk_say("Test pictures" "${VESK_TEST_PICTURES}")
