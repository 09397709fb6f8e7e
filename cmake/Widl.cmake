# lv_add_idl(name): makes <name>.h, <name>_i.c and <name>.tlb of <name>.idl in the current build folder.
find_program(WIDL NAMES x86_64-w64-mingw32-widl widl REQUIRED)
set(WIDL_INCLUDE /usr/include/wine/wine/windows)
set(WIDL_STDOLE /usr/lib/x86_64-linux-gnu/wine/x86_64-windows)

function(lv_add_idl name)
  set(idl ${CMAKE_CURRENT_SOURCE_DIR}/${name}.idl)
  set(dir ${CMAKE_CURRENT_BINARY_DIR}/generated)
  file(MAKE_DIRECTORY ${dir})
  set(common ${WIDL} -m64 -I ${WIDL_INCLUDE} -I ${CMAKE_CURRENT_SOURCE_DIR} -L ${WIDL_STDOLE})
  add_custom_command(
    OUTPUT ${dir}/${name}.h ${dir}/${name}_i.cpp ${dir}/${name}.tlb
    COMMAND ${common} -h -H ${dir}/${name}.h ${idl}
    COMMAND ${common} -u -o ${dir}/${name}_i.cpp ${idl}
    COMMAND ${common} -t -o ${dir}/${name}.tlb ${idl}
    DEPENDS ${idl}
    COMMENT "widl ${name}.idl"
    VERBATIM)
endfunction()
