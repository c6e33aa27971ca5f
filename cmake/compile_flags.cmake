# morvane_flags: how every file of the project is compiled and linked.

add_library(morvane_flags INTERFACE)
# Compared without case, as CMake itself compares build types.
set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)

target_compile_options(
  morvane_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                          $<$<BOOL:${MORVANE_WERROR}>:-Werror>)

# Two builds in different folders give the same bytes.
target_compile_options(
  morvane_flags INTERFACE $<${optimised}:-ffile-prefix-map=${PROJECT_BINARY_DIR}=.>
                          $<${optimised}:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)

# Hardened as Debian's packages are.
target_compile_options(morvane_flags INTERFACE -fstack-protector-strong -fstack-clash-protection)
target_link_options(morvane_flags INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:--as-needed)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
  target_compile_options(morvane_flags INTERFACE -mbranch-protection=standard)
else()
  target_compile_options(morvane_flags INTERFACE -fcf-protection)
endif()
target_compile_options(morvane_flags INTERFACE "$<${optimised}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")

# What nothing calls is left out, above all of a static runtime.
target_compile_options(morvane_flags INTERFACE -ffunction-sections -fdata-sections)
target_link_options(morvane_flags INTERFACE LINKER:--gc-sections)

if(MORVANE_STATIC_RUNTIME)
  target_link_options(morvane_flags INTERFACE -static-libstdc++ -static-libgcc)
endif()

if(MORVANE_SANITIZERS)
  target_compile_options(
    morvane_flags INTERFACE -fsanitize=${MORVANE_SANITIZERS} -fno-sanitize-recover=all
                            -fno-omit-frame-pointer)
  target_link_options(morvane_flags INTERFACE -fsanitize=${MORVANE_SANITIZERS})
endif()

# The fuzzer sees which lines an input reaches; its own main is linked to the fuzz targets only.
if(MORVANE_FUZZ)
  target_compile_options(morvane_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
