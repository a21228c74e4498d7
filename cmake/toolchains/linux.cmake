# Builds for Linux on another processor by the cross compilers of Debian; QVSLM_TRIPLE says which:
# aarch64-linux-gnu, s390x-linux-gnu, i686-linux-gnu. Programs of the target run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QVSLM_TRIPLE)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${QVSLM_TRIPLE})

set(CMAKE_C_COMPILER ${QVSLM_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${QVSLM_TRIPLE}-g++)

set(CMAKE_FIND_ROOT_PATH /usr/${QVSLM_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages of the target alone, not those of this machine.
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/${QVSLM_TRIPLE}/pkgconfig)

string(REPLACE "i686" "i386" emulated ${CMAKE_SYSTEM_PROCESSOR})
find_program(QEMU_${emulated} NAMES qemu-${emulated}-static)
if(QEMU_${emulated})
  set(CMAKE_CROSSCOMPILING_EMULATOR ${QEMU_${emulated}} -L /usr/${QVSLM_TRIPLE})
endif()
