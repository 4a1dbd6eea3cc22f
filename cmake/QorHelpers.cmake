# Small helpers shared by the library, tests, benchmarks and fuzz targets.

# qor_library(SHORT FOLDERS dir... [FILES file...] [EXCLUDE regex...] DEPS target...)
# makes the target qor_SHORT, exported and aliased as Qor::SHORT.
# One library from every source below the named folders of qor/, and the named
# files (relative to qor/), less the sources a regex of EXCLUDE matches (it is
# matched against the path below qor/). Headers stay beside their sources and
# are installed under include/qor/<folder>.
function(qor_library short)
  cmake_parse_arguments(Q "" "" "FOLDERS;FILES;EXCLUDE;DEPS;PRIVATE_DEPS" ${ARGN})
  set(name qor_${short})
  set(sources)
  foreach(folder IN LISTS Q_FOLDERS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
         ${PROJECT_SOURCE_DIR}/qor/${folder}/*.cpp)
    foreach(source IN LISTS found)
      file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR}/qor ${source})
      set(excluded OFF)
      foreach(pattern IN LISTS Q_EXCLUDE)
        if(relative MATCHES "${pattern}")
          set(excluded ON)
        endif()
      endforeach()
      if(NOT excluded)
        list(APPEND sources ${source})
      endif()
    endforeach()
  endforeach()
  foreach(file IN LISTS Q_FILES)
    if(EXISTS ${PROJECT_SOURCE_DIR}/qor/${file})
      list(APPEND sources ${PROJECT_SOURCE_DIR}/qor/${file})
    endif()
  endforeach()
  if(NOT sources)
    set(stub ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp)
    file(WRITE ${stub} "// ${name} has no sources yet\n")
    set(sources ${stub})
  endif()
  add_library(${name} ${sources})
  add_library(Qor::${short} ALIAS ${name})
  set_target_properties(${name} PROPERTIES EXPORT_NAME ${short} OUTPUT_NAME qor_${short})
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${name} PUBLIC ${Q_DEPS} PRIVATE ${Q_PRIVATE_DEPS})
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES UNITY_BUILD ${QOR_UNITY} UNITY_BUILD_BATCH_SIZE 16)
  set_property(GLOBAL APPEND PROPERTY QOR_LIBRARIES ${name})
endfunction()

# qor_test(SUBSYSTEM [XVFB] LIBS target...): one test executable per subsystem
# from every source in tests/<subsystem>/, registered with ctest; XVFB runs it
# under xvfb-run, for tests that open real windows.
function(qor_test subsystem)
  cmake_parse_arguments(Q "XVFB" "TIMEOUT" "LIBS" ${ARGN})
  file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT found)
    return()
  endif()
  set(exe test_${subsystem})
  add_executable(${exe} ${found})
  target_link_libraries(${exe} PRIVATE ${Q_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  target_include_directories(${exe} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${exe} PRIVATE
    QOR_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QOR_BINARY_DIR="${PROJECT_BINARY_DIR}")
  set_target_properties(${exe} PROPERTIES UNITY_BUILD ${QOR_UNITY} UNITY_BUILD_BATCH_SIZE 16)
  if(NOT Q_TIMEOUT)
    set(Q_TIMEOUT 600)
  endif()
  if(Q_XVFB)
    # Real windows on a machine without a display: a private X server per run.
    add_test(NAME ${subsystem}
             COMMAND xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" $<TARGET_FILE:${exe}> --gtest_brief=1)
  else()
    add_test(NAME ${subsystem} COMMAND ${exe} --gtest_brief=1)
  endif()
  set_tests_properties(${subsystem} PROPERTIES TIMEOUT ${Q_TIMEOUT})
endfunction()

# qor_bench(NAME SOURCES... LIBS ...): a Google Benchmark program.
function(qor_bench name)
  cmake_parse_arguments(Q "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(bench_${name} ${Q_SOURCES})
  target_link_libraries(bench_${name} PRIVATE ${Q_LIBS} benchmark::benchmark)
  target_compile_definitions(bench_${name} PRIVATE QOR_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QOR_BINARY_DIR="${PROJECT_BINARY_DIR}")
  set_property(GLOBAL APPEND PROPERTY QOR_BENCHES bench_${name})
endfunction()

# qor_fuzz(NAME SOURCE LIBS ... CORPUS dir): a libFuzzer target and its seeds.
function(qor_fuzz name)
  cmake_parse_arguments(Q "" "CORPUS" "SOURCES;LIBS" ${ARGN})
  add_executable(fuzz_${name} ${Q_SOURCES})
  target_link_libraries(fuzz_${name} PRIVATE ${Q_LIBS})
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  set_property(GLOBAL APPEND PROPERTY QOR_FUZZERS fuzz_${name})
  if(Q_CORPUS)
    set_property(TARGET fuzz_${name} PROPERTY QOR_CORPUS ${Q_CORPUS})
  endif()
  file(APPEND ${PROJECT_BINARY_DIR}/fuzzers.txt "fuzz_${name} ${Q_CORPUS}\n")
endfunction()

# qor_bench_folder(SUBSYSTEM LIBS ...): every .cpp in the calling folder is one
# benchmark program, bench_<subsystem>_<file>.
function(qor_bench_folder subsystem)
  cmake_parse_arguments(Q "" "" "LIBS" ${ARGN})
  file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(src IN LISTS found)
    get_filename_component(stem ${src} NAME_WE)
    qor_bench(${subsystem}_${stem} SOURCES ${src} LIBS ${Q_LIBS})
  endforeach()
endfunction()

# qor_fuzz_folder(SUBSYSTEM LIBS ...): every .cpp in the calling folder is one
# fuzz target, fuzz_<file>, seeded from the folder corpus/<file>/ when present.
function(qor_fuzz_folder subsystem)
  cmake_parse_arguments(Q "" "" "LIBS" ${ARGN})
  file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(src IN LISTS found)
    get_filename_component(stem ${src} NAME_WE)
    set(corpus ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${stem})
    if(EXISTS ${corpus})
      qor_fuzz(${stem} SOURCES ${src} LIBS ${Q_LIBS} CORPUS ${corpus})
    else()
      qor_fuzz(${stem} SOURCES ${src} LIBS ${Q_LIBS})
    endif()
  endforeach()
endfunction()

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
