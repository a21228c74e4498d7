# Builds for Windows by MinGW-w64 with its POSIX threads; QVSLM_TRIPLE says for which width:
# x86_64-w64-mingw32 or i686-w64-mingw32. Programs of the target run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QVSLM_TRIPLE)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${QVSLM_TRIPLE})

set(CMAKE_C_COMPILER ${QVSLM_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QVSLM_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${QVSLM_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${QVSLM_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages of the target alone, not those of this machine.
set(ENV{PKG_CONFIG_LIBDIR} /usr/${QVSLM_TRIPLE}/lib/pkgconfig)

find_program(WINE NAMES wine64 wine)
if(WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE})
endif()
