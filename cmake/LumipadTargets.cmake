# What every target of ours shares: warnings, sanitizers, and no deprecated or implicit Qt conversions.
add_library(lumipad_flags INTERFACE)
target_compile_options(lumipad_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(lumipad_flags INTERFACE
    QT_DEPRECATED_WARNINGS QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH)
if(LUMIPAD_WERROR)
    target_compile_options(lumipad_flags INTERFACE -Werror)
endif()
if(LUMIPAD_SANITIZE)
    # Applied to the whole build: mixing checked and unchecked code gives false reports.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# lumipad_room(<name> SOURCES <files> LINKS <targets>): the library of one folder. Only its own folder is
# its include path, and it sees other folders only through LINKS; so an include that points up or
# sideways does not compile.
function(lumipad_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    add_library(lumipad_${name} STATIC ${ROOM_SOURCES})
    target_include_directories(lumipad_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(lumipad_${name} PUBLIC ${ROOM_LINKS} PRIVATE lumipad_flags)
endfunction()

# lumipad_test(<name> SOURCES <files> LINKS <targets>): one Qt Test program, run without a display.
function(lumipad_test name)
    cmake_parse_arguments(T "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${T_SOURCES})
    target_link_libraries(${name} PRIVATE ${T_LINKS} Qt5::Test lumipad_flags)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    target_compile_definitions(${name} PRIVATE
        TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}" EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900 ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions='${PROJECT_SOURCE_DIR}/tests/leaks.txt'")
endfunction()
