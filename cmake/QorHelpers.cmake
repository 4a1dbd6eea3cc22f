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
  target_include_directories(bench_${name} PRIVATE ${PROJECT_SOURCE_DIR}/bench)
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

# Embedding a model or any file as a module resource; installed with the package.
include(${CMAKE_CURRENT_LIST_DIR}/QorEmbedResource.cmake)
