# Finds CHMLib, which installs no CMake package of its own. Offers the target CHM::CHM.
find_path(CHM_INCLUDE_DIR chm_lib.h)
find_library(CHM_LIBRARY chm)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CHM REQUIRED_VARS CHM_LIBRARY CHM_INCLUDE_DIR)

if(CHM_FOUND AND NOT TARGET CHM::CHM)
    add_library(CHM::CHM UNKNOWN IMPORTED)
    set_target_properties(CHM::CHM PROPERTIES
        IMPORTED_LOCATION "${CHM_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${CHM_INCLUDE_DIR}")
endif()
