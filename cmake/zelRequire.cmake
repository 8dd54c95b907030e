# zel_require(<part> DEBIAN <package>... FIND <find_package arguments>...)
#
# Finds what one promised part of the build needs, and stops configuring with
# the Debian packages to install when it is not there: a part that is left out
# quietly would leave the build green while the host never gets it.
# A macro, so that the imported targets and *_FOUND variables reach the caller.
macro(zel_require part)
    cmake_parse_arguments(_zr "" "OPTION" "DEBIAN;FIND" ${ARGN})
    find_package(${_zr_FIND} QUIET)
    list(GET _zr_FIND 0 _zr_pkg)
    set(_zr_ok ${${_zr_pkg}_FOUND})
    # For a package with components, every component named must be there.
    list(FIND _zr_FIND COMPONENTS _zr_at)
    if(_zr_ok AND _zr_at GREATER -1)
        list(SUBLIST _zr_FIND ${_zr_at} -1 _zr_comps)
        list(REMOVE_AT _zr_comps 0)
        foreach(_zr_c IN LISTS _zr_comps)
            if(NOT ${_zr_pkg}${_zr_c}_FOUND)
                set(_zr_ok FALSE)
            endif()
        endforeach()
    endif()
    if(NOT _zr_ok)
        list(JOIN _zr_DEBIAN " " _zr_debs)
        list(JOIN _zr_FIND " " _zr_args)
        set(_zr_msg "${part} cannot be built: find_package(${_zr_args}) failed.\n"
                    "Install the Debian packages: apt-get install ${_zr_debs}\n"
                    "(bash scripts/setup-deps.sh installs everything the build uses).")
        if(_zr_OPTION)
            list(APPEND _zr_msg "\nTo build without it, configure with -D${_zr_OPTION}=OFF.")
        endif()
        if(${_zr_pkg}_NOT_FOUND_MESSAGE)
            list(APPEND _zr_msg "\nCMake said: ${${_zr_pkg}_NOT_FOUND_MESSAGE}")
        endif()
        list(JOIN _zr_msg "" _zr_msg)
        message(FATAL_ERROR "${_zr_msg}")
    endif()
endmacro()
