# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# What is released makes a fault in it hard to misuse. A sanitizer finds more by itself, and the
# checks of the C library would hide calls from it.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    set(released $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
    # Some compilers define the fortification by themselves, to another value.
    add_compile_options(
        "$<${released}:-fstack-protector-strong;-fstack-clash-protection;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    add_link_options("$<${released}:LINKER:-z,relro,-z,now>")
endif()
