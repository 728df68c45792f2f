# header_library(TARGET FOLDER): a library of headers alone, as it is installed for this system. The
# folder that it lies in must not be searched itself: it has the headers of another system.
function(header_library target folder)
    set(place ${PROJECT_BINARY_DIR}/headers/${folder})
    file(MAKE_DIRECTORY ${place})
    file(CREATE_LINK /usr/include/${folder} ${place}/${folder} SYMBOLIC)
    if(NOT TARGET ${target})
        add_library(${target} INTERFACE IMPORTED GLOBAL)
        target_include_directories(${target} SYSTEM INTERFACE ${place})
    endif()
endfunction()
