# Which Qt the whole build is made with: QT_VERSION_MAJOR is 5 or 6, for find_package(Qt${QT_VERSION_MAJOR} ...).
# Everything else asks for Qt::<component>.
set(LUMIPAD_QT "" CACHE STRING "The Qt to build with: 5, 6, or empty (5 where it is found, else 6)")
set_property(CACHE LUMIPAD_QT PROPERTY STRINGS "" 5 6)
if(NOT LUMIPAD_QT MATCHES "^[56]?$")
    message(FATAL_ERROR "LUMIPAD_QT is \"${LUMIPAD_QT}\": it takes 5, 6, or nothing (5 where it is found, else 6).")
endif()

# Without a choice this folder keeps to the one that it was made with. Each has a search of its own: one search takes
# the first folder in which it finds either.
set(candidates ${LUMIPAD_QT})
if(NOT candidates)
    set(candidates ${LUMIPAD_QT_BEFORE} 5 6)
endif()
foreach(major IN LISTS candidates)
    find_package(QT QUIET NAMES Qt${major} COMPONENTS Core)
    if(QT_FOUND)
        break()
    endif()
endforeach()
list(JOIN candidates " or " candidates)
if(NOT QT_FOUND)
    message(FATAL_ERROR "Qt ${candidates} is not found: install it, or name its folder in CMAKE_PREFIX_PATH.")
endif()
if(QT_VERSION VERSION_LESS 5.15 OR (QT_VERSION_MAJOR EQUAL 6 AND QT_VERSION VERSION_LESS 6.4))
    message(FATAL_ERROR "Qt ${QT_VERSION} in ${QT_DIR} is too old: it takes 5.15, or 6.4 and later.")
endif()

# What is made with one of them is of no use to the other.
if(DEFINED LUMIPAD_QT_BEFORE AND NOT LUMIPAD_QT_BEFORE EQUAL QT_VERSION_MAJOR)
    message(FATAL_ERROR "This build folder was made with Qt ${LUMIPAD_QT_BEFORE}. Give Qt ${QT_VERSION_MAJOR} another.")
endif()
set(LUMIPAD_QT_BEFORE ${QT_VERSION_MAJOR} CACHE INTERNAL "The Qt that this build folder was made with")
message(STATUS "Building with Qt ${QT_VERSION}")
