# SPDX-License-Identifier: Apache-2.0
# Builds for another of Debian's architectures, out of a folder with its packages unpacked, and runs
# what was built in QEMU. scripts/test-on gives KVFILTER_CROSS_TRIPLET ("s390x-linux-gnu") and
# CMAKE_SYSROOT.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KVFILTER_CROSS_TRIPLET)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${KVFILTER_CROSS_TRIPLET})
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_CXX_COMPILER ${KVFILTER_CROSS_TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${KVFILTER_CROSS_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR "/usr/bin/qemu-${CMAKE_SYSTEM_PROCESSOR};-L;${CMAKE_SYSROOT}")
if(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
  # Every function signs its return address; in QEMU the usual cipher takes ten times as long as all
  # else.
  list(APPEND CMAKE_CROSSCOMPILING_EMULATOR -cpu max,pauth-impdef=on)
endif()
