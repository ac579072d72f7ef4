# The interface of LibreOffice in C++: its headers are not packaged, cppumaker makes them from the type libraries.
# Defines the target Uno::Uno, which only src/workbook may link or include.
find_path(LIBREOFFICE_DIR program/types/offapi.rdb
    HINTS /usr/lib/libreoffice /opt/libreoffice REQUIRED)
find_path(UNO_SDK_INCLUDE_DIR cppuhelper/bootstrap.hxx PATH_SUFFIXES libreoffice REQUIRED)
find_program(CPPUMAKER cppumaker HINTS ${LIBREOFFICE_DIR}/sdk/bin REQUIRED)

set(UNO_GENERATED_DIR ${CMAKE_BINARY_DIR}/uno)
set(UNO_STAMP ${UNO_GENERATED_DIR}/.fait)
if(NOT EXISTS ${UNO_STAMP})
    execute_process(
        COMMAND ${CPPUMAKER} -Gc -O${UNO_GENERATED_DIR}
            ${LIBREOFFICE_DIR}/program/types.rdb ${LIBREOFFICE_DIR}/program/types/offapi.rdb
        COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
    file(TOUCH ${UNO_STAMP})
endif()

add_library(Uno::Uno INTERFACE IMPORTED)
target_include_directories(Uno::Uno SYSTEM INTERFACE ${UNO_GENERATED_DIR} ${UNO_SDK_INCLUDE_DIR})
target_compile_definitions(Uno::Uno INTERFACE UNX GCC LINUX CPPU_ENV=gcc3)
target_link_directories(Uno::Uno INTERFACE ${LIBREOFFICE_DIR}/program ${LIBREOFFICE_DIR}/sdk/lib)
target_link_libraries(Uno::Uno INTERFACE uno_sal uno_cppu uno_cppuhelpergcc3 uno_salhelpergcc3)
target_link_options(Uno::Uno INTERFACE -Wl,-rpath,${LIBREOFFICE_DIR}/program)
