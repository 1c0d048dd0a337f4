# Flags of every target of the project: exact arithmetic, no hidden exports, no warnings.
add_library(iocv_flags INTERFACE)
target_compile_options(iocv_flags INTERFACE
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  $<$<BOOL:${IOCV_WERROR}>:-Werror>)
# g++ 12 warns of overlapping copies inside its own std::string at -O3, wrongly.
target_compile_options(iocv_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_options(iocv_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fvisibility=hidden>
                                            $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden>)

# A shared library of ours resolves all its symbols when it is linked. The sanitizers of clang leave
# theirs to the program.
set(IOCV_NO_UNDEFINED LINKER:-z,defs)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_DEBUG}" MATCHES "sanitize")
  set(IOCV_NO_UNDEFINED)
endif()
