# SPDX-License-Identifier: Apache-2.0
# What makes it hard to misuse an error of the filter: buffers and the stack are watched, and the
# tables of the dynamic linker are read-only. Packagers whose flags say all this build without
# CMAKE_BUILD_TYPE.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection
             -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER "HAVE${flag}" known)
  check_cxx_compiler_flag("-Werror ${flag}" ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  add_link_options(LINKER:-z,relro LINKER:-z,now LINKER:--as-needed)
endif()
