# Open CASCADE's libraries. Its own package file wants the development files of every toolkit that Debian splits
# off, drawing included, so the libraries are looked up one by one.
#   opencascade_solids    shapes, sweeping, meshing, measuring: quick to load
#   opencascade_exchange  files of other programs; brings its picture libraries along and is slow to load
find_path(OPENCASCADE_INCLUDE_DIR Standard_Version.hxx PATH_SUFFIXES opencascade REQUIRED)

function(vanzet_opencascade name)
  add_library(opencascade_${name} INTERFACE)
  target_include_directories(opencascade_${name} SYSTEM INTERFACE ${OPENCASCADE_INCLUDE_DIR})
  foreach(toolkit IN LISTS ARGN)
    find_library(OPENCASCADE_${toolkit} ${toolkit} REQUIRED)
    target_link_libraries(opencascade_${name} INTERFACE ${OPENCASCADE_${toolkit}})
  endforeach()
endfunction()

vanzet_opencascade(solids TKernel TKMath TKG2d TKG3d TKGeomBase TKGeomAlgo TKBRep TKTopAlgo TKPrim TKMesh TKBO)
vanzet_opencascade(exchange TKSTL TKXSBase TKSTEP TKSTEPBase TKLCAF TKCDF TKXCAF TKXDESTEP TKIGES TKXDEIGES TKRWMesh TKVRML)
