# What is released is built so that a memory error stops the program instead of being exploited. The
# sanitizers find such errors themselves and do not work together with some of these options.
if(NOT CATALOGADOR_HARDENED OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
endif()

set(hardening -fstack-protector-strong -Wformat -Werror=format-security)
add_link_options(-fstack-protector-strong)
if(WIN32)
    # The linker's defaults differ from version to version.
    add_link_options(-Wl,--dynamicbase -Wl,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        add_link_options(-Wl,--high-entropy-va)
    endif()
else()
    list(APPEND hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|i.86")
        list(APPEND hardening -fcf-protection=full)
    endif()
    add_compile_options($<$<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>:-fPIE>)
    add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie> -Wl,-z,relro
                     -Wl,-z,now -Wl,-z,noexecstack)
endif()
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:${hardening}>")
