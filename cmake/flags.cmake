# Flags of every target of the project: exact arithmetic, no hidden exports, no warnings.
add_library(iocv_flags INTERFACE)
target_compile_options(iocv_flags INTERFACE
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  $<$<BOOL:${IOCV_WERROR}>:-Werror>)
# A position-independent executable must not copy the exported records out of the library.
target_compile_options(iocv_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fvisibility=hidden>
                                            $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden>)
