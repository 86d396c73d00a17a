# Compiler cache and a fast linker, where they are there.
find_program(TB_CCACHE ccache)
if(TB_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${TB_CCACHE} sloppiness=pch_defines,time_macros,include_file_mtime,include_file_ctime)
endif()
find_program(TB_MOLD mold)
if(TB_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
