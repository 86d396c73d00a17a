# One interface target carries every flag; nothing is set globally.
add_library(tb_flags INTERFACE)
target_compile_definitions(tb_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH
    QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(tb_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wcast-align -Wcast-qual -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2 -Wundef -Wshadow
    $<$<BOOL:${TB_WERROR}>:-Werror>)
if(TB_SANITIZE)
    target_compile_options(tb_flags INTERFACE -fsanitize=${TB_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(tb_flags INTERFACE -fsanitize=${TB_SANITIZE})
endif()

# What a program that others install is hardened with; Debian's compiler makes it position independent.
if(TB_HARDEN)
    target_compile_options(tb_flags INTERFACE -fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    target_link_options(tb_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()

# moc output is compiled below the build folder; keep the linter's opinion away from it.
file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy
     "Checks: '-*,llvm-twine-local'\nInheritParentConfig: false\n")

# Precompiled headers, one for each kind of target: the toolkit's headers cost more than the code.
function(tb_make_pch name)
    if(NOT TB_PCH)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "LIBS;HEADERS" ${ARGN})
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "namespace {}\n")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE tb_flags ${ARG_LIBS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

function(tb_use_pch target pch)
    if(TB_PCH)
        target_precompile_headers(${target} REUSE_FROM ${pch})
    endif()
endfunction()

tb_make_pch(tb_pch_core LIBS Qt6::Core HEADERS <QtCore> <optional> <vector> <string> <functional>)
tb_make_pch(tb_pch_widgets LIBS Qt6::Widgets HEADERS <QtWidgets> <optional> <vector> <functional>)

# A folder of src/ as a static library made of every source in it. PUBLIC names the folders whose
# headers it may include: the linker then proves the one rule of includes.
function(tb_module name)
    cmake_parse_arguments(ARG "WIDGETS" "" "PUBLIC;PRIVATE" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.qrc)
    add_library(${name} STATIC ${sources})
    # moc's record of what it read does not know a new header: let it forget that it ran.
    get_property(known CACHE ${name}_SOURCES PROPERTY VALUE)
    if(NOT "${sources}" STREQUAL "${known}")
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
        set(${name}_SOURCES "${sources}" CACHE INTERNAL "What ${name} is made of")
    endif()
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE tb_flags ${ARG_PRIVATE})
    if(ARG_WIDGETS)
        tb_use_pch(${name} tb_pch_widgets)
    else()
        tb_use_pch(${name} tb_pch_core)
    endif()
endfunction()

# A program from one main file at the top of src/.
function(tb_program name source)
    cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE tb_flags ${ARG_LIBS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
endfunction()
