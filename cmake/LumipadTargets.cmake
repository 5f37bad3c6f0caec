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

# lumipad_room(<name> [MOC] SOURCES <files> LINKS <targets>): the library of one folder. Only its own folder is
# its include path, and it sees other folders only through LINKS; so an include that points up or
# sideways does not compile. MOC: a class of it has a Q_OBJECT.
function(lumipad_room name)
    cmake_parse_arguments(ROOM "MOC" "" "SOURCES;LINKS" ${ARGN})
    add_library(lumipad_${name} STATIC ${ROOM_SOURCES})
    set_target_properties(lumipad_${name} PROPERTIES AUTOMOC ${ROOM_MOC})
    target_include_directories(lumipad_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(lumipad_${name} PUBLIC ${ROOM_LINKS} PRIVATE lumipad_flags)
endfunction()

# lumipad_test(<name> [EIGHTH] SOURCES <files> LINKS <targets>): one Qt Test program, run without a display. What all
# tests share in tests/support is linked; the helpers for the window come with LINKS lumipad_testwindow.
# EIGHTH: the same program runs a second time, with one more controller among the resources; not with the sanitizers, which
# have seen its code then.
function(lumipad_test name)
    cmake_parse_arguments(T "EIGHTH" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${T_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE ${T_LINKS} lumipad_testsupport lumipad_flags)
    target_compile_definitions(${name} PRIVATE
        TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}" EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
    set(programs ${name})
    if(T_EIGHTH AND NOT LUMIPAD_SANITIZE)
        # The objects of the test as they are: only the resources differ. They come first, so the linker takes no
        # others out of the window's library.
        list(REMOVE_ITEM T_LINKS lumipad_resources)
        add_executable(${name}_eighth $<TARGET_OBJECTS:${name}>)
        target_link_libraries(${name}_eighth PRIVATE lumipad_eighth_resources ${T_LINKS} lumipad_testsupport)
        list(APPEND programs ${name}_eighth)
    endif()
    foreach(program ${programs})
        add_test(NAME ${program} COMMAND ${program})
        set_tests_properties(${program} PROPERTIES TIMEOUT 900 ENVIRONMENT
            "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions='${PROJECT_SOURCE_DIR}/tests/leaks.txt'")
    endforeach()
endfunction()
