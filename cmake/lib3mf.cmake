# lib3mf, which reads and writes 3MF files.
find_path(LIB3MF_INCLUDE_DIR Model/COM/NMR_DLLInterfaces.h PATH_SUFFIXES lib3mf REQUIRED)
find_library(LIB3MF_LIBRARY 3MF REQUIRED)
add_library(lib3mf INTERFACE)
target_include_directories(lib3mf SYSTEM INTERFACE ${LIB3MF_INCLUDE_DIR})
target_link_libraries(lib3mf INTERFACE ${LIB3MF_LIBRARY})
