# The harnesses of fuzz/ and the libraries each one tests. The fuzz build
# makes libFuzzer targets of them (fuzz/CMakeLists.txt); the test suite
# builds them with replay_main.cpp and runs each over its kept corpus.
set(DOVRIN_FUZZ_HARNESSES settings_file statement mci_command)
set(DOVRIN_FUZZ_LIBRARIES_settings_file dovrin_storage)
set(DOVRIN_FUZZ_LIBRARIES_statement dovrin_platform_runtime dovrin_makedb)
set(DOVRIN_FUZZ_LIBRARIES_mci_command dovrin_mci_command)

# dovrin_add_harness(TARGET HARNESS [SOURCE...]): an executable TARGET of the
# harness HARNESS and its libraries, with any further sources given.
function(dovrin_add_harness target harness)
  add_executable(${target} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${harness}_fuzzer.cpp ${ARGN})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${DOVRIN_FUZZ_LIBRARIES_${harness}})
endfunction()
