# lumipad_resources(<name> <folders>): the library of what is compiled into the program from folders laid out like
# resources/: their images, the manual, and every layout and mapping that lies there, so a controller is added by adding
# its two files. The resources are found under ":/icons/Images" and ":/mappings/Mappings", and Q_INIT_RESOURCE(lumipad)
# brings them in. An object library, so that they are compiled once; a static one is made of these objects.
function(lumipad_resources name)
    set(RESOURCES "")
    foreach(part icons/Images/*.png icons/Images/*.pdf mappings/Mappings/*.xml)
        string(REGEX MATCH "^[a-z]+" prefix ${part})
        string(APPEND RESOURCES "    <qresource prefix=\"/${prefix}\">\n")
        foreach(folder ${ARGN})
            # A new or deleted file is noticed by the next build.
            file(GLOB files CONFIGURE_DEPENDS ${folder}/${part})
            foreach(file ${files})
                file(RELATIVE_PATH alias ${folder}/${prefix} ${file})
                string(APPEND RESOURCES "        <file alias=\"${alias}\">${file}</file>\n")
            endforeach()
        endforeach()
        string(APPEND RESOURCES "    </qresource>\n")
    endforeach()
    # The name of the list is the name for Q_INIT_RESOURCE; the folder keeps two lists apart.
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}/lumipad.qrc)
    string(REPLACE "&" "&amp;" RESOURCES "${RESOURCES}")
    file(CONFIGURE OUTPUT ${list} CONTENT "<RCC version=\"1.0\">\n@RESOURCES@</RCC>\n" @ONLY)
    add_library(${name} OBJECT ${list})
    set_target_properties(${name} PROPERTIES AUTORCC ON)
    target_link_libraries(${name} PRIVATE Qt::Core)
endfunction()
