# One set of flags for everything that is built here: warnings as errors while developing, and the
# sanitizers or coverage when asked for.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

# Floating-point results are part of the interface: no fused or reassociated arithmetic. Traps are not:
# without them a choice between two results need not be a branch.
add_compile_options($<$<NOT:$<CXX_COMPILER_ID:MSVC>>:-ffp-contract=off>
                    $<$<NOT:$<CXX_COMPILER_ID:MSVC>>:-fno-trapping-math>)

# On x86 of 32 bits the arithmetic of SSE, as on that of 64 bits: the old one has bits to spare, and
# rounds them when it pleases.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86" AND NOT MSVC)
  add_compile_options(-msse2 -mfpmath=sse)
endif()

if(QVSLM_DEVELOP AND NOT MSVC)
  add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()

if(QVSLM_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
endif()

if(QVSLM_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
