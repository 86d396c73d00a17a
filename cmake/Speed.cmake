# Compiler cache and a fast linker, where they are there.
find_program(TB_CCACHE ccache)
if(TB_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Paths count from the source folder, so that two checkouts share what they compile.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${TB_CCACHE})
    add_compile_options(-fpch-preprocess)
endif()
find_program(TB_MOLD mold)
if(TB_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
