# What users run is hardened as Debian's packages are, as far as the processor and the compiler know how;
# scripts/check-hardening looks for it in the built files. The other builds have assertions and sanitizers in its place.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

set(hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
foreach(flag IN ITEMS -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "PLOVI_KNOWS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        list(APPEND hardening ${flag})
    endif()
endforeach()
add_compile_options("$<$<CONFIG:Release>:${hardening}>")
add_link_options("$<$<CONFIG:Release>:-Wl,-z,relro,-z,now>")
