# The compiler and the libraries for Windows; toolkit.sh builds those. Included by the file of each
# processor, which sets WINDOWS_PROCESSOR.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${WINDOWS_PROCESSOR})
set(WINDOWS_HOST ${WINDOWS_PROCESSOR}-w64-mingw32)
# The variant with POSIX threads: the other one has no std::mutex.
set(CMAKE_C_COMPILER ${WINDOWS_HOST}-gcc-posix)
set(CMAKE_CXX_COMPILER ${WINDOWS_HOST}-g++-posix)
set(CMAKE_RC_COMPILER ${WINDOWS_HOST}-windres)

if(DEFINED ENV{CATALOGADOR_CACHE})
    set(cache $ENV{CATALOGADOR_CACHE})
elseif(DEFINED ENV{XDG_CACHE_HOME})
    set(cache $ENV{XDG_CACHE_HOME}/catalogador)
else()
    set(cache $ENV{HOME}/.cache/catalogador)
endif()
set(WINDOWS_TOOLKIT ${cache}/windows/${WINDOWS_PROCESSOR})

set(CMAKE_FIND_ROOT_PATH /usr/${WINDOWS_HOST} ${WINDOWS_TOOLKIT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_PREFIX_PATH /googletest /sqlite)
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/modules)
set(wxWidgets_CONFIG_EXECUTABLE ${WINDOWS_TOOLKIT}/wx/bin/wx-config)
set(ENV{PKG_CONFIG_LIBDIR}
    ${WINDOWS_TOOLKIT}/xlsxwriter/lib/pkgconfig:${WINDOWS_TOOLKIT}/minizip/lib/pkgconfig)

# Everything of the compiler goes into the file itself, which then runs wherever it is put.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)
# Windows 10 and later.
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0A00 -DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN")

if(WINDOWS_PROCESSOR STREQUAL i686)
    # Numbers are calculated as they are in 64 bits; every processor of Windows 10 can do that.
    string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse")
    set(wine ${CMAKE_CURRENT_LIST_DIR}/wine32/wine)
else()
    set(wine wine)
endif()
# Programs that are run while building, and tests.
set(CMAKE_CROSSCOMPILING_EMULATOR ${wine})
