# The whole build is watched by the fuzzer and checked by the sanitizers. libFuzzer comes with clang alone.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "LUMIPAD_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
