# TinyXML and libsodium ship pkg-config files on Debian, not CMake packages.
# This file is used by the library's own build and by the installed package
# config, so a consumer finds them exactly the way the library did.
find_package(PkgConfig REQUIRED QUIET)
if(NOT TARGET PkgConfig::LibBedrockTinyXML)
    pkg_check_modules(LibBedrockTinyXML REQUIRED QUIET IMPORTED_TARGET GLOBAL tinyxml)
    # The Debian build of TinyXML has its STL interface on; say so to every user.
    set_property(TARGET PkgConfig::LibBedrockTinyXML APPEND PROPERTY
        INTERFACE_COMPILE_DEFINITIONS TIXML_USE_STL)
endif()
if(NOT TARGET PkgConfig::LibBedrockSodium)
    pkg_check_modules(LibBedrockSodium REQUIRED QUIET IMPORTED_TARGET GLOBAL libsodium)
endif()
