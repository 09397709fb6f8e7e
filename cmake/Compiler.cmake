# The target lv_sdk: what every translation unit is compiled with. The Windows build takes the SDK headers of
# mingw-w64; the native one those of libwine-dev, of which no code is linked.
add_library(lv_sdk INTERFACE)
target_include_directories(lv_sdk INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(lv_sdk INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror>
  # Equal results in both worlds: no fused multiply-add, no reordering of floating point.
  -ffp-contract=off -fno-fast-math
  # Reports name files from the root of the tree, wherever it was built.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(WIN32)
  target_compile_definitions(lv_sdk INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX)
  target_link_libraries(lv_sdk INTERFACE ole32 oleaut32 uuid rpcrt4 shlwapi shell32 advapi32 user32 gdi32)
else()
  find_package(Threads REQUIRED)
  target_link_libraries(lv_sdk INTERFACE Threads::Threads)
  target_include_directories(lv_sdk SYSTEM INTERFACE /usr/include/wine/wine/windows)
  # Identifiers are arguments of class templates; hidden ones would make each such class hidden too.
  target_compile_definitions(lv_sdk INTERFACE DECLSPEC_HIDDEN=)
  # Interface methods natively have the native calling convention; it must be the same in every translation unit.
  target_compile_options(lv_sdk INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:SHELL:-include ${PROJECT_SOURCE_DIR}/platform/com/native/CallingConvention.h>)
endif()

if(LV_SANITIZE)
  # Hosts put any number into an enumeration of the interfaces, and refusing or keeping it is behaviour under test.
  add_compile_options(-fsanitize=${LV_SANITIZE} -fno-sanitize=enum -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${LV_SANITIZE})
endif()
if(LV_FUZZ)
  # The libraries under test report their coverage to the fuzzer that is linked into the targets.
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
if(LV_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # With the checks of the sanitizer in between, g++ 12 takes initialised members of std::regex for uninitialised.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
