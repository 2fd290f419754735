# libzip, which reads the packages of devices.
find_path(LIBZIP_INCLUDE_DIR zip.h REQUIRED)
find_library(LIBZIP_LIBRARY zip REQUIRED)
add_library(libzip INTERFACE)
target_include_directories(libzip SYSTEM INTERFACE ${LIBZIP_INCLUDE_DIR})
target_link_libraries(libzip INTERFACE ${LIBZIP_LIBRARY})
