# Flags of every target of the project: exact arithmetic, no hidden exports, no warnings.
add_library(iocv_flags INTERFACE)
target_compile_options(iocv_flags INTERFACE
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  $<$<BOOL:${IOCV_WERROR}>:-Werror>)
# g++ 12 warns of overlapping copies inside its own std::string at -O3, wrongly.
target_compile_options(iocv_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# clang warns of what the standard library of g++ 12 calls deprecated but itself uses in stable_sort and
# stable_partition; g++ still warns of what we use.
target_compile_options(iocv_flags INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
target_compile_options(iocv_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fvisibility=hidden>
                                            $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden>)

# Counts which lines and branches run; only in the library, so that the tests' own arithmetic keeps its
# speed.
add_library(iocv_counted INTERFACE)
if(IOCV_COVERAGE)
  target_compile_options(iocv_counted INTERFACE -O0 --coverage -fprofile-update=atomic)
  target_link_options(iocv_counted INTERFACE --coverage)
endif()

# A shared library of ours resolves all its symbols when it is linked. The sanitizers of clang leave
# theirs to the program.
set(IOCV_NO_UNDEFINED LINKER:-z,defs)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_DEBUG}" MATCHES "sanitize")
  set(IOCV_NO_UNDEFINED)
endif()
