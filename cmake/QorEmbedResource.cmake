# Part of the installed package: clients embed their own model resources.
include_guard(GLOBAL)

# qor_embed_resource(TARGET FILE ID [TYPE type]): embeds FILE into TARGET at
# build time and registers it, before main, as the resource (null module, ID,
# TYPE) through qor::RegisterResource, so that
# VRMLModel::LoadModelFromResource(nullptr, ID, TYPE, ...) finds it. TYPE
# defaults to "OpenGL", the type of binary models. TARGET must be an
# executable or a shared library (a static library's linker may drop the
# registration) and link Qor::view3d. The file is embedded again when it changes.
function(qor_embed_resource target file id)
  cmake_parse_arguments(Q "" "TYPE" "" ${ARGN})
  if(NOT Q_TYPE)
    set(Q_TYPE OpenGL)
  endif()
  get_filename_component(file ${file} ABSOLUTE)
  string(MAKE_C_IDENTIFIER "${target}_${id}_${Q_TYPE}" symbol)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/qor_embed_resource.cmake)
  # The generator runs in script mode at build time; it is written once per folder.
  file(WRITE ${script} [=[
file(READ "${INPUT}" hex HEX)
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
if(size EQUAL 0)
  set(bytes "0")
endif()
file(WRITE "${OUTPUT}" "// Embedded from ${INPUT}; made by qor_embed_resource.
#include <cstddef>
#include \"qor/view3d/Resources.h\"
namespace {
alignas(8) const unsigned char ${SYMBOL}_data[] = {${bytes}};
struct ${SYMBOL}_registrar {
    ${SYMBOL}_registrar() { qor::RegisterResource(nullptr, ${ID}u, \"${TYPE}\", ${SYMBOL}_data, ${size}); }
} ${SYMBOL}_instance;
}  // namespace
")
]=])
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${file} -DOUTPUT=${output} -DID=${id} -DTYPE=${Q_TYPE}
            -DSYMBOL=${symbol} -P ${script}
    DEPENDS ${file} ${script}
    COMMENT "Embedding ${file} as resource ${id} of the type ${Q_TYPE}"
    VERBATIM)
  set_source_files_properties(${output} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_sources(${target} PRIVATE ${output})
endfunction()
